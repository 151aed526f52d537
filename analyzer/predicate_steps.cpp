#include "analyzer/predicate_steps.h"

#include <cstring>

#include "analyzer/literals.h"

namespace Quorel {

bool SyllableCut::Apply(StringEx& target) {
  const int32_t length = target.Length();
  if (length < 2) return false;
  saved[0] = target.At(length - 2);
  saved[1] = target.At(length - 1);
  target.Truncate(length - 2);
  text = &target;
  return true;
}

void SyllableCut::Restore() {
  if (text == nullptr) return;
  text->Append(saved, 2);
  text = nullptr;
}

bool InExceptionList(const char* list, const StringEx& stem) {
  const int32_t length = stem.Length();
  if (length == 0) return false;
  // ':' is no CP949 lead or trail byte, so it only ever delimits.
  for (const char* p = std::strstr(list, stem.CStr()); p != nullptr;
       p = std::strstr(p + 1, stem.CStr())) {
    if (p > list && p[-1] == ':' && p[length] == ':') return true;
  }
  return false;
}

const char* BareJamo(int type) {
  switch (type) {
    case 5: return Hangul::kJamoNieun;
    case 9: return Hangul::kJamoRieul;
    case 17: return Hangul::kJamoMieum;
    case 19: return Hangul::kJamoBieup;
    default: return nullptr;
  }
}

}  // namespace Quorel
