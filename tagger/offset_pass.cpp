// Pass 16: the start and end byte of each morpheme in the surface.
//
// A morpheme follows the one before it, except where contraction fused an
// ending into the stem's last syllable: then the ending starts a syllable
// earlier (했 = 하 + 었), and a copula with no trace in the surface gets
// (-1, 65535).
#include <cstring>

#include "eojul/tag_set.h"
#include "tagger/post_passes.h"
#include "text/syllable_table.h"

namespace Quorel {

namespace {

constexpr uint32_t kPredicateFamily = 0x20000000;
constexpr uint32_t kPredicativeSuffix = 0x00200000;
constexpr uint8_t kChoIeung = 13;
constexpr uint8_t kJungU = 20;
constexpr uint8_t kJongBieup = 19;
constexpr uint8_t kJongSsangSiot = 22;

bool Is(const char* pair, const char* syllable) {
  return pair[0] == syllable[0] && pair[1] == syllable[1];
}

bool IsAny(const char* pair, std::initializer_list<const char*> syllables) {
  for (const char* syllable : syllables) {
    if (Is(pair, syllable)) return true;
  }
  return false;
}

// Two bytes of the surface at `at`, or an empty pair outside it.
struct SurfacePair {
  char bytes[3] = {0, 0, 0};
  SurfacePair(const char* surface, int length, int at) {
    if (at >= 0 && at + 2 <= length) {
      bytes[0] = surface[at];
      bytes[1] = surface[at + 1];
    }
  }
  const SyllableRec* Syllable() const {
    return bytes[0] == 0 ? nullptr : SyllableAt(bytes);
  }
};

// The offsets of an ending that starts at s.
void EndingOffsets(const char* lexicon, int len, int s, const char* surface,
                   int surfaceLength, uint32_t prevMask, const char* prevLexicon,
                   int& start, int& end) {
  char first[3] = {lexicon[0], len > 1 ? lexicon[1] : '\0', 0};
  bool earlier = false;
  if (IsAny(first, {"\xC1\xF6", "\xB1\xE2", "\xB0\xD4"})) {  // 지 기 게
    SurfacePair before(surface, surfaceLength, s - 2);
    earlier = IsAny(before.bytes, {"\xC4\xA1", "\xC5\xB0", "\xC4\xC9"});  // 치 키 케
  } else if (IsAny(first, {"\xBE\xFA", "\xBE\xD2"})) {  // 었 았
    const SyllableRec* before = SurfacePair(surface, surfaceLength, s - 2).Syllable();
    earlier = before != nullptr && before->jongseong == kJongSsangSiot;
  } else if (IsAny(first, {"\xBE\xEE", "\xBE\xC6"})) {  // 어 아
    SurfacePair at(surface, surfaceLength, s);
    if (Is(at.bytes, "\xBE\xEE")) {
      earlier = false;
    } else if (!IsAny(at.bytes, {"\xBF\xF6", "\xBF\xCD"})) {  // 워 와
      earlier = true;
    } else {
      const SyllableRec* last = LastSyllable(prevLexicon);
      earlier = !(last != nullptr && last->jongseong == kJongBieup);
    }
  } else if (IsAny(first, {"\xA4\xA4", "\xA4\xA9", "\xA4\xB1", "\xA4\xB2"})) {
    // ㄴ ㄹ ㅁ ㅂ fused into the stem, unless a ㅂ stem took 우 (고운).
    const SyllableRec* at = SurfacePair(surface, surfaceLength, s).Syllable();
    const SyllableRec* last = LastSyllable(prevLexicon);
    bool kept = (prevMask & kPredicateFamily) != 0 && at != nullptr &&
                at->choseong == kChoIeung && at->jungseong == kJungU &&
                last != nullptr && last->jongseong == kJongBieup;
    earlier = !kept;
  }
  start = earlier ? s - 2 : s;
  end = start + len;
}

}  // namespace

void PassOffsets(Eojul& e) {
  e.ClearOffsets();
  const char* surface = e.GetString();
  int surfaceLength = static_cast<int>(std::strlen(surface));
  uint32_t candidates = e.StoredCount();
  for (uint32_t k = 0; k < candidates; ++k) {
    uint32_t first = e.FirstMorphemeAt(k);
    uint32_t count = e.MorphemeCountAt(k);
    int prevEnd = 0;
    int prevPrevEnd = 0;
    uint32_t prevMask = 0;
    const char* prevLexicon = "";
    for (uint32_t m = 0; m < count; ++m) {
      const char* lexicon = e.LexiconOf(first + m);
      uint32_t t = e.PosOf(first + m);
      int len = static_cast<int>(std::strlen(lexicon));
      int start;
      int end;
      bool predicative = (t & (kPredicateFamily | Pos::VX | Pos::E_ | Pos::VC |
                               kPredicativeSuffix)) != 0;
      if (!predicative) {
        start = m == 0 ? 0 : prevEnd;
        end = start + len;
      } else {
        int s = m == 0 ? 0 : (prevEnd == -1 ? prevPrevEnd : prevEnd);
        start = s;
        end = s + len;
        if ((t & Pos::E_) != 0) {
          EndingOffsets(lexicon, len, s, surface, surfaceLength, prevMask,
                        prevLexicon, start, end);
        } else if ((t & Pos::VC) != 0) {
          SurfacePair at(surface, surfaceLength, s);
          // 이 입 인 일 임
          if (!IsAny(at.bytes, {"\xC0\xCC", "\xC0\xD4", "\xC0\xCE", "\xC0\xCF",
                                "\xC0\xD3"})) {
            start = -1;
            end = 65535;
          }
        } else if ((t & kPredicativeSuffix) != 0 &&
                   (std::strcmp(lexicon, "\xB4\xE4") == 0 ||            // 답
                    std::strcmp(lexicon, "\xBD\xBA\xB7\xB4") == 0)) {  // 스럽
          const SyllableRec* after =
              SurfacePair(surface, surfaceLength, s + len).Syllable();
          if (after != nullptr && after->choseong == kChoIeung &&
              after->jungseong == kJungU) {
            end = s + len + 2;
          }
        }
      }
      e.AddMorphemeOffsets(static_cast<short>(start),
                           static_cast<unsigned short>(end));
      prevPrevEnd = prevEnd;
      prevEnd = static_cast<int16_t>(static_cast<unsigned short>(end));
      prevMask = t;
      prevLexicon = lexicon;
    }
  }
}

}  // namespace Quorel
