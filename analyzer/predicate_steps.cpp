#include "analyzer/predicate_steps.h"

#include <cstring>

#include "analyzer/literals.h"

namespace Quorel {

bool SyllableSwap::Apply(StringEx& target, int32_t at, int16_t link) {
  const SyllableRec* to = SyllableByNumber(link);
  if (to == nullptr || to->code[0] == 0 || at < 0 || at + 2 > target.Length()) {
    return false;
  }
  char* bytes = target.Data() + at;
  saved[0] = bytes[0];
  saved[1] = bytes[1];
  bytes[0] = static_cast<char>(to->code[0]);
  bytes[1] = static_cast<char>(to->code[1]);
  text = &target;
  offset = at;
  return true;
}

void SyllableSwap::Restore() {
  if (text == nullptr) return;
  char* bytes = text->Data() + offset;
  bytes[0] = saved[0];
  bytes[1] = saved[1];
  text = nullptr;
}

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
