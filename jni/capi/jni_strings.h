// Strings across the JNI boundary: Java strings, byte arrays of UTF-8 (or of
// the JVM's default charset) and the library's CP949 NUL-terminated bytes.
// The String class and its three members are looked up once per process and
// kept; concurrent first calls all store the same identities.
#ifndef QRLSL_JNI_CAPI_JNI_STRINGS_H_
#define QRLSL_JNI_CAPI_JNI_STRINGS_H_

#include <jni.h>

#include <memory>

#include "text/charset.h"

namespace Quorel {

// Size of the path buffers: 1,024 bytes of path and room for its NUL.
constexpr int kPathBufferSize = 1024;

// String.getBytes() in the platform's default charset; 0 for a null string or
// when java/lang/String or the method can't be found.
jbyteArray StringToBytes(JNIEnv* env, jstring text);
// String.getBytes(charset); 0 as above.
jbyteArray StringToBytes(JNIEnv* env, jstring text, const char* charset);
// new String(bytes, charset); 0 when the class or constructor is missing.
jstring BytesToString(JNIEnv* env, jbyteArray bytes, const char* charset);
// Copies `bytes` into `buffer` (kPathBufferSize + 1 bytes) with a NUL after
// them; more than 1,024 bytes are cut at 1,023. Returns the bytes kept.
int BytesToBuffer(JNIEnv* env, char* buffer, jbyteArray bytes);
// A byte array of `text` without its NUL (null text: empty).
jbyteArray CStringToBytes(JNIEnv* env, const char* text);

// A file path or name in the default charset, as the loaders take it.
class PathArgument {
 public:
  PathArgument(JNIEnv* env, jstring path);
  const char* CStr() const { return buffer; }

 private:
  char buffer[kPathBufferSize + 1];
};

// Text inward: the Java string through UTF-8 and UCS-2 into CP949 bytes that
// live as long as this object. Never null; a null string gives "".
class InwardText {
 public:
  InwardText(JNIEnv* env, jstring text);
  const char* CStr() const { return cp949 ? cp949.get() : ""; }

 private:
  std::unique_ptr<char, void (*)(char*)> cp949;
};

// Text outward: CP949 bytes through UCS-2 and UTF-8 into a Java string. A
// null text gives the empty string; the result is 0 only if the JVM fails.
jstring OutwardText(JNIEnv* env, const char* text);

// A tag name (ASCII in CP949) as a Java string through the CP949 charset.
jstring TagNameToString(JNIEnv* env, const char* name);

}  // namespace Quorel

#endif  // QRLSL_JNI_CAPI_JNI_STRINGS_H_
