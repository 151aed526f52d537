// Natives of quorel.engine.QR_Eojul: the readers of one analysed token. Text
// leaves through CP949 -> UCS-2 -> UTF-8; tag names through the JVM's CP949.
// Out-of-range numbers give what the eojul gives: "" (lexicon, tag), -1
// (mask), false, 0.0.
#include "jni/capi/jni_bridge.h"
#include "jni/capi/jni_strings.h"

using Quorel::FromHandle;
using Quorel::QR_Eojul;
using Quorel::Shielded;

QRLSL_NATIVE jlong JNICALL
Java_quorel_engine_QR_1Eojul_jniCreateObject(JNIEnv*, jobject) {
  return Shielded(jlong{0},
                  [] { return Quorel::ToHandle(Quorel::CreateEojul()); });
}

QRLSL_NATIVE jlong JNICALL Java_quorel_engine_QR_1Eojul_jniSetObject(
    JNIEnv*, jobject, jlong handle) {
  return handle;
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Eojul_jniDeleteObject(
    JNIEnv*, jobject, jlong self) {
  Shielded([&] {
    if (self != 0) delete FromHandle<QR_Eojul>(self);
  });
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Eojul_jniEojulInitialize(
    JNIEnv*, jobject, jlong self) {
  Shielded([&] { FromHandle<QR_Eojul>(self)->Initialize(false); });
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Eojul_jniSetString(
    JNIEnv* env, jobject, jstring text, jlong self) {
  Shielded([&] {
    Quorel::InwardText cp949(env, text);
    FromHandle<QR_Eojul>(self)->SetString(cp949.CStr());
  });
}

QRLSL_NATIVE jstring JNICALL Java_quorel_engine_QR_1Eojul_jniGetString(
    JNIEnv* env, jobject, jlong self) {
  return Shielded(jstring{nullptr}, [&] {
    return Quorel::OutwardText(env, FromHandle<QR_Eojul>(self)->GetString());
  });
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Eojul_jniGetListSize(
    JNIEnv*, jobject, jlong self) {
  return Shielded(jint{0},
                  [&] { return FromHandle<QR_Eojul>(self)->GetListSize(); });
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Eojul_jniGetCount(
    JNIEnv*, jobject, jint candidate, jlong self) {
  return Shielded(jint{0}, [&] {
    return FromHandle<QR_Eojul>(self)->GetCount(candidate);
  });
}

QRLSL_NATIVE jstring JNICALL Java_quorel_engine_QR_1Eojul_jniGetLexicon(
    JNIEnv* env, jobject, jint candidate, jint morpheme, jlong self) {
  // A null lexicon (out of range) converts as the empty text.
  return Shielded(jstring{nullptr}, [&] {
    return Quorel::OutwardText(
        env, FromHandle<QR_Eojul>(self)->GetLexicon(candidate, morpheme));
  });
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Eojul_jniGetPOS(
    JNIEnv*, jobject, jint candidate, jint morpheme, jlong self) {
  return Shielded(jint{-1}, [&] {
    return static_cast<jint>(
        FromHandle<QR_Eojul>(self)->GetPOS(candidate, morpheme));
  });
}

QRLSL_NATIVE jstring JNICALL Java_quorel_engine_QR_1Eojul_jniGetStrPOS(
    JNIEnv* env, jobject, jint candidate, jint morpheme, jlong self) {
  return Shielded(jstring{nullptr}, [&] {
    return Quorel::TagNameToString(
        env, FromHandle<QR_Eojul>(self)->GetStrPOS(candidate, morpheme));
  });
}

QRLSL_NATIVE jdouble JNICALL Java_quorel_engine_QR_1Eojul_jniGetScore(
    JNIEnv*, jobject, jint candidate, jlong self) {
  return Shielded(jdouble{0.0}, [&] {
    return FromHandle<QR_Eojul>(self)->GetScore(candidate);
  });
}

QRLSL_NATIVE jboolean JNICALL Java_quorel_engine_QR_1Eojul_jniIsIndexWord(
    JNIEnv*, jobject, jint candidate, jint morpheme, jlong self) {
  return Shielded(jboolean{JNI_FALSE}, [&] {
    return FromHandle<QR_Eojul>(self)->IsIndexWord(candidate, morpheme)
               ? jboolean{JNI_TRUE}
               : jboolean{JNI_FALSE};
  });
}
