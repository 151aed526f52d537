// Natives of quorel.engine.QR_Knowledge: create, delete and the loads. Paths
// and file names go to the loaders in the JVM's default charset, unconverted.
#include "jni/capi/jni_bridge.h"
#include "jni/capi/jni_strings.h"

using Quorel::FromHandle;
using Quorel::PathArgument;
using Quorel::QR_Knowledge;
using Quorel::Shielded;

namespace {

// The fixed weights of the statistical tagger that every Java host gets.
constexpr double kTaggerWeights[5] = {550.96, 370.28, 54.11, 8.8, 50.0};

// The loads of a file path/fileName with a flag (user nouns, pre-analysis).
jint LoadListFile(JNIEnv* env, jstring path, jstring fileName, jboolean flag,
                  jlong self,
                  int (QR_Knowledge::*load)(const char*, const char*, bool)) {
  return Shielded(jint{0}, [&] {
    PathArgument directory(env, path);
    PathArgument file(env, fileName);
    return (FromHandle<QR_Knowledge>(self)->*load)(
        directory.CStr(), file.CStr(), flag != JNI_FALSE);
  });
}

}  // namespace

QRLSL_NATIVE jlong JNICALL
Java_quorel_engine_QR_1Knowledge_jniCreateObject(JNIEnv*, jobject) {
  return Shielded(jlong{0}, [] {
    return Quorel::ToHandle(Quorel::CreateKnowledge(false));
  });
}

QRLSL_NATIVE void JNICALL
Java_quorel_engine_QR_1Knowledge_jniDeleteObject(JNIEnv*, jobject,
                                                 jlong self) {
  Shielded([&] {
    if (self != 0) delete FromHandle<QR_Knowledge>(self);
  });
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Knowledge_jniLoadKnowledge(
    JNIEnv* env, jobject, jstring path, jboolean fromCompiledFile,
    jboolean withPreAnalysis, jlong self) {
  return Shielded(jint{0}, [&] {
    PathArgument directory(env, path);
    return FromHandle<QR_Knowledge>(self)->LoadKnowledge(
        directory.CStr(), fromCompiledFile != JNI_FALSE,
        withPreAnalysis != JNI_FALSE);
  });
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Knowledge_jniLoadUserNoun(
    JNIEnv* env, jobject, jstring path, jstring fileName, jboolean flag,
    jlong self) {
  return LoadListFile(env, path, fileName, flag, self,
                      &QR_Knowledge::LoadUserNoun);
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Knowledge_jniLoadPreAnalysis(
    JNIEnv* env, jobject, jstring path, jstring fileName, jboolean overwrite,
    jlong self) {
  return LoadListFile(env, path, fileName, overwrite, self,
                      &QR_Knowledge::LoadPreAnalysis);
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Knowledge_jniLoadTaggerInfo(
    JNIEnv* env, jobject, jstring path, jlong self) {
  Shielded([&] {
    PathArgument directory(env, path);
    QR_Knowledge* knowledge = FromHandle<QR_Knowledge>(self);
    knowledge->LoadGroupRules(directory.CStr());
    knowledge->LoadTagLists(directory.CStr());
    knowledge->SetTaggerWeights(kTaggerWeights[0], kTaggerWeights[1],
                                kTaggerWeights[2], kTaggerWeights[3],
                                kTaggerWeights[4]);
  });
}
