// The string helpers of the bridge and the process-wide cache of the Java
// String class and its members. Failed lookups and failed Java calls clear
// the Java exception and give 0, so no Java exception leaves a native call.
#include "jni/capi/jni_strings.h"

#include <atomic>
#include <cstring>
#include <new>

namespace Quorel {

namespace {

// FromWide measures at most this many bytes and cuts a longer text there; the
// inward text keeps that road from this length on, so that its bytes stay
// the same.
constexpr jsize kOnePassLimit = 0x7FFFFFF;

// Filled on first use and kept for the life of the process. A thread that
// loses the race for the class drops its own global reference.
std::atomic<jclass> stringClass{nullptr};
std::atomic<jmethodID> getBytesDefault{nullptr};
std::atomic<jmethodID> getBytesCharset{nullptr};
std::atomic<jmethodID> stringFromBytes{nullptr};

jclass StringClass(JNIEnv* env) {
  jclass cached = stringClass.load(std::memory_order_acquire);
  if (cached != nullptr) return cached;
  jclass local = env->FindClass("java/lang/String");
  if (local == nullptr) {
    env->ExceptionClear();
    return nullptr;
  }
  jclass global = static_cast<jclass>(env->NewGlobalRef(local));
  env->DeleteLocalRef(local);
  if (global == nullptr) return nullptr;
  jclass expected = nullptr;
  if (!stringClass.compare_exchange_strong(expected, global,
                                           std::memory_order_acq_rel)) {
    env->DeleteGlobalRef(global);
    return expected;
  }
  return global;
}

jmethodID StringMethod(JNIEnv* env, std::atomic<jmethodID>& slot,
                       const char* name, const char* signature) {
  jmethodID cached = slot.load(std::memory_order_acquire);
  if (cached != nullptr) return cached;
  jclass cls = StringClass(env);
  if (cls == nullptr) return nullptr;
  jmethodID id = env->GetMethodID(cls, name, signature);
  if (id == nullptr) {
    env->ExceptionClear();
    return nullptr;
  }
  slot.store(id, std::memory_order_release);
  return id;
}

// A Java call's object result, or 0 with the exception cleared.
jobject Checked(JNIEnv* env, jobject result) {
  if (env->ExceptionCheck()) {
    env->ExceptionClear();
    if (result != nullptr) env->DeleteLocalRef(result);
    return nullptr;
  }
  return result;
}

// Runs `call` with the charset's name as a Java string, and gives its checked
// result.
template <typename F>
jobject WithCharsetName(JNIEnv* env, const char* charset, F&& call) {
  jstring name = env->NewStringUTF(charset);
  if (name == nullptr) return Checked(env, nullptr);
  jobject result = Checked(env, call(name));
  env->DeleteLocalRef(name);
  return result;
}

}  // namespace

jbyteArray StringToBytes(JNIEnv* env, jstring text) {
  if (text == nullptr) return nullptr;
  jmethodID method = StringMethod(env, getBytesDefault, "getBytes", "()[B");
  if (method == nullptr) return nullptr;
  return static_cast<jbyteArray>(
      Checked(env, env->CallObjectMethod(text, method)));
}

jbyteArray StringToBytes(JNIEnv* env, jstring text, const char* charset) {
  if (text == nullptr) return nullptr;
  jmethodID method = StringMethod(env, getBytesCharset, "getBytes",
                                  "(Ljava/lang/String;)[B");
  if (method == nullptr) return nullptr;
  return static_cast<jbyteArray>(WithCharsetName(env, charset, [&](jstring name) {
    return env->CallObjectMethod(text, method, name);
  }));
}

jstring BytesToString(JNIEnv* env, jbyteArray bytes, const char* charset) {
  if (bytes == nullptr) return nullptr;
  jmethodID init = StringMethod(env, stringFromBytes, "<init>",
                                "([BLjava/lang/String;)V");
  if (init == nullptr) return nullptr;
  return static_cast<jstring>(WithCharsetName(env, charset, [&](jstring name) {
    return env->NewObject(StringClass(env), init, bytes, name);
  }));
}

int BytesToBuffer(JNIEnv* env, char* buffer, jbyteArray bytes) {
  if (bytes == nullptr) {
    buffer[0] = 0;
    return 0;
  }
  jsize length = env->GetArrayLength(bytes);
  jsize kept = length <= kPathBufferSize ? length : kPathBufferSize - 1;
  jbyte* elements = env->GetByteArrayElements(bytes, nullptr);
  if (elements == nullptr) {
    env->ExceptionClear();
    buffer[0] = 0;
    return 0;
  }
  std::memcpy(buffer, elements, static_cast<size_t>(kept));
  buffer[kept] = 0;
  env->ReleaseByteArrayElements(bytes, elements, JNI_ABORT);
  return kept;
}

jbyteArray CStringToBytes(JNIEnv* env, const char* text) {
  jsize length = text == nullptr ? 0 : static_cast<jsize>(std::strlen(text));
  jbyteArray bytes = env->NewByteArray(length);
  if (bytes == nullptr) return static_cast<jbyteArray>(Checked(env, nullptr));
  if (length > 0) {
    env->SetByteArrayRegion(bytes, 0, length,
                            reinterpret_cast<const jbyte*>(text));
  }
  return bytes;
}

PathArgument::PathArgument(JNIEnv* env, jstring path) {
  std::memset(buffer, 0, sizeof buffer);
  BytesToBuffer(env, buffer, StringToBytes(env, path));
}

InwardText::InwardText(JNIEnv* env, jstring text) : cp949(nullptr, FreeBytes) {
  jbyteArray bytes = StringToBytes(env, text, "UTF-8");
  if (bytes == nullptr) return;
  jsize length = env->GetArrayLength(bytes);
  jbyte* elements = env->GetByteArrayElements(bytes, nullptr);
  if (elements == nullptr) {
    env->ExceptionClear();
    env->DeleteLocalRef(bytes);
    return;
  }
  // The text ends at its first NUL, as the C string of the two-step road did.
  const char* utf8 = reinterpret_cast<const char*>(elements);
  const void* nul = std::memchr(utf8, 0, static_cast<size_t>(length));
  const jsize used = nul != nullptr ? static_cast<jsize>(static_cast<const char*>(nul) - utf8)
                                    : length;
  if (used < kOnePassLimit) {
    // One pass, no wide copy: no character grows, so used + 1 bytes hold it.
    char* out = new (std::nothrow) char[static_cast<size_t>(used) + 1];
    if (out != nullptr) Utf8ToCp949(out, utf8, used);
    cp949.reset(out);
  } else {
    std::unique_ptr<char[]> copy(new char[static_cast<size_t>(used) + 1]);
    std::memcpy(copy.get(), utf8, static_cast<size_t>(used));
    copy[used] = 0;
    std::unique_ptr<WideChar, void (*)(WideChar*)> wide(ToWide(copy.get(), "utf-8"),
                                                        FreeWide);
    cp949.reset(FromWide(wide.get(), "cp949"));
  }
  env->ReleaseByteArrayElements(bytes, elements, JNI_ABORT);
  env->DeleteLocalRef(bytes);
}

jstring OutwardText(JNIEnv* env, const char* text) {
  std::unique_ptr<WideChar, void (*)(WideChar*)> wide(ToWide(text, "cp949"),
                                                       FreeWide);
  std::unique_ptr<char, void (*)(char*)> utf8(FromWide(wide.get(), "utf-8"),
                                              FreeBytes);
  jbyteArray bytes = CStringToBytes(env, utf8.get());
  if (bytes == nullptr) return nullptr;
  jstring result = BytesToString(env, bytes, "UTF-8");
  env->DeleteLocalRef(bytes);
  return result;
}

jstring TagNameToString(JNIEnv* env, const char* name) {
  char local[255] = {};
  if (name != nullptr) std::strncpy(local, name, sizeof local - 1);
  jbyteArray bytes = CStringToBytes(env, local);
  if (bytes == nullptr) return nullptr;
  jstring result = BytesToString(env, bytes, "CP949");
  env->DeleteLocalRef(bytes);
  return result;
}

}  // namespace Quorel
