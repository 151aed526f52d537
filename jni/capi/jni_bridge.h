// What every native entry point shares: the casts between Java's long
// handles and the library's objects, and the shield that keeps a C++
// exception (an allocation failure) from unwinding into the JVM.
#ifndef QRLSL_JNI_CAPI_JNI_BRIDGE_H_
#define QRLSL_JNI_CAPI_JNI_BRIDGE_H_

#include <jni.h>

#include <cstdint>

#include "qrlsl/qrlsl.h"

// The entry points are the library's only exports.
#define QRLSL_NATIVE extern "C" JNIEXPORT

namespace Quorel {

// A handle is an object's address; 0 is null. Handles are not checked.
template <typename T>
T* FromHandle(jlong handle) {
  return reinterpret_cast<T*>(static_cast<intptr_t>(handle));
}

template <typename T>
jlong ToHandle(T* object) {
  return static_cast<jlong>(reinterpret_cast<intptr_t>(object));
}

// Runs `body` and gives its result, or `fallback` if it throws.
template <typename R, typename F>
R Shielded(R fallback, F&& body) noexcept {
  try {
    return body();
  } catch (...) {
    return fallback;
  }
}

// Runs `body`, swallowing any exception.
template <typename F>
void Shielded(F&& body) noexcept {
  try {
    body();
  } catch (...) {
  }
}

}  // namespace Quorel

#endif  // QRLSL_JNI_CAPI_JNI_BRIDGE_H_
