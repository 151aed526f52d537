// Natives of quorel.engine.QR_Analyzer: they forward to the analyzer named by
// the last argument. Eojul handles from the sentence point into the analyzer
// and live until its next run; Java must never delete them.
#include "jni/capi/jni_bridge.h"
#include "jni/capi/jni_strings.h"

using Quorel::FromHandle;
using Quorel::QR_Analyzer;
using Quorel::QR_Eojul;
using Quorel::QR_Knowledge;
using Quorel::Shielded;
using Quorel::ToHandle;

QRLSL_NATIVE jlong JNICALL
Java_quorel_engine_QR_1Analyzer_jniCreateObject__J(JNIEnv*, jobject,
                                                   jlong knowledge) {
  return Shielded(jlong{0}, [&] {
    return ToHandle(
        Quorel::CreateAnalyzer(FromHandle<QR_Knowledge>(knowledge)));
  });
}

QRLSL_NATIVE jlong JNICALL
Java_quorel_engine_QR_1Analyzer_jniCreateObject__JJ(JNIEnv*, jobject,
                                                    jlong knowledge,
                                                    jlong eojul) {
  // Either handle may be 0; an analyzer without an eojul waits for SetEojul.
  return Shielded(jlong{0}, [&] {
    return ToHandle(Quorel::CreateAnalyzer(FromHandle<QR_Knowledge>(knowledge),
                                           FromHandle<QR_Eojul>(eojul)));
  });
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Analyzer_jniDeleteObject(
    JNIEnv*, jobject, jlong self) {
  Shielded([&] {
    if (self != 0) delete FromHandle<QR_Analyzer>(self);
  });
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Analyzer_jniSetKnowledge(
    JNIEnv*, jobject, jlong knowledge, jlong self) {
  Shielded([&] {
    FromHandle<QR_Analyzer>(self)->SetKnowledge(
        FromHandle<QR_Knowledge>(knowledge));
  });
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Analyzer_jniSetEojul(
    JNIEnv*, jobject, jlong eojul, jlong self) {
  return Shielded(jint{0}, [&] {
    return FromHandle<QR_Analyzer>(self)->SetEojul(FromHandle<QR_Eojul>(eojul));
  });
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Analyzer_jniSetOption(
    JNIEnv*, jobject, jint option, jint value, jlong self) {
  Shielded([&] { FromHandle<QR_Analyzer>(self)->SetOption(option, value); });
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Analyzer_jniSetExOption(
    JNIEnv*, jobject, jint flags, jlong self) {
  Shielded([&] { FromHandle<QR_Analyzer>(self)->SetExOption(flags); });
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Analyzer_jniRunWithEojul(
    JNIEnv*, jobject, jlong self) {
  return Shielded(jint{0}, [&] {
    return FromHandle<QR_Analyzer>(self)->RunWithEojul();
  });
}

QRLSL_NATIVE jint JNICALL Java_quorel_engine_QR_1Analyzer_jniRunWithString(
    JNIEnv* env, jobject, jstring text, jlong self) {
  return Shielded(jint{0}, [&] {
    Quorel::InwardText cp949(env, text);
    return FromHandle<QR_Analyzer>(self)->RunWithString(cp949.CStr());
  });
}

QRLSL_NATIVE jint JNICALL
Java_quorel_engine_QR_1Analyzer_jniGetEojulCountInSentence(JNIEnv*, jobject,
                                                           jlong self) {
  return Shielded(jint{0}, [&] {
    return FromHandle<QR_Analyzer>(self)->GetEojulCountInSentence();
  });
}

QRLSL_NATIVE jlong JNICALL
Java_quorel_engine_QR_1Analyzer_jniGetEojulInSentence(JNIEnv*, jobject,
                                                      jint index, jlong self) {
  // A negative index becomes a huge unsigned one and so gives 0.
  return Shielded(jlong{0}, [&] {
    return ToHandle(FromHandle<QR_Analyzer>(self)->GetEojulInSentence(
        static_cast<unsigned int>(index)));
  });
}

QRLSL_NATIVE jint JNICALL
Java_quorel_engine_QR_1Analyzer_jniGetEojulOffsetInSentence(JNIEnv*, jobject,
                                                            jint index,
                                                            jlong self) {
  // REQUIRES: index below the count; the analyzer doesn't test it.
  return Shielded(jint{0}, [&] {
    return FromHandle<QR_Analyzer>(self)->GetEojulOffsetInSentence(
        static_cast<unsigned int>(index));
  });
}

QRLSL_NATIVE void JNICALL Java_quorel_engine_QR_1Analyzer_jniTagging(
    JNIEnv*, jobject, jint mode, jlong self) {
  Shielded([&] { FromHandle<QR_Analyzer>(self)->Tagging(mode); });
}
