// The Hangul runs of a mixed token. Beside a number a run may start with a
// counter (3개를: 개 NNB, 를 josa) or be 여 (10여); elsewhere it may be a
// josa after what precedes it (IBM에서). A run that begins with 이 may be
// the copula; anything left is analysed as a word of its own and joined.
#include <cstdlib>

#include "analyzer/m_analyzer.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr const char* kI = "\xC0\xCC";                // 이
constexpr const char* kYeoSyllable = "\xBF\xA9";      // 여
constexpr const char* kGan = "\xB0\xA3";              // 간
constexpr const char* kYeogan = "\xBF\xA9\xB0\xA3";   // 여간

// Bits of a main-dictionary record: determiner, adverb, the noun family.
constexpr uint32_t kMmBit = 0x01000000;
constexpr uint32_t kMaBit = 0x02000000;
constexpr unsigned char kChoDigeut = 5;
constexpr unsigned char kChoIeung = 13;
constexpr unsigned char kJungA = 3;
constexpr unsigned char kJungI = 29;
constexpr unsigned char kJongNieun = 5;
constexpr unsigned char kJongRieul = 9;
constexpr unsigned char kJongMieum = 17;
constexpr unsigned char kJongBieup = 19;
constexpr unsigned char kJongSsangSiot = 22;

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

bool AnyNoun(uint32_t bits) {
  return HasAll(bits, Pos::NNG) || HasAll(bits, Pos::NNP) ||
         HasAll(bits, Pos::NNU);
}

// A composition number with bit 1: the word counts after a number.
bool OddText(const char* text) {
  return text != nullptr && (std::atoi(text) & 1) != 0;
}

// The Hangul syllable at `bytes`; null for anything else.
const SyllableRec* HangulAt(const char* bytes) {
  if (bytes == nullptr || bytes[0] == 0 || bytes[1] == 0) return nullptr;
  const SyllableRec* s = SyllableAt(bytes);
  return s != nullptr && s->code[0] != 0 ? s : nullptr;
}

bool IsYi(const SyllableRec* s) {
  return s != nullptr && s->choseong == kChoIeung && s->jungseong == kJungI;
}

bool IsBareEomiFinal(unsigned char jong) {
  return jong == kJongNieun || jong == kJongRieul || jong == kJongMieum;
}

// The last candidate of `e` has a morpheme: something stands before.
bool HasOpenMorphemes(const Eojul& e) {
  const uint32_t n = e.StoredCount();
  return n > 0 && e.MorphemeCountAt(n - 1) > 0;
}

}  // namespace

void MAnalyzer::AddNounPart(Eojul& e, StringEx& part, int mode) {
  mixedPart.SetText(part.CStr(), EojulType::kDoubleByte);
  if (AnalyzeNoun(mixedPart, mode, -1) < 0) {
    mixedPart.BeginCandidate();
    mixedPart.AddMorpheme(part.CStr(), Pos::NNR);
  }
  mixedPart.EndCandidate();
  JoinPart(e, mixedPart);
}

int MAnalyzer::PartTail(Eojul& e, StringEx& part, unsigned start, int result,
                        int state, int32_t resume) {
  const Dictionary* dictionary = Knowledge();
  const int32_t len = part.Length();
  const SyllableRec* f = HangulAt(part.CStr());

  // 인, 일, 임 alone: the copula with its bare eomi.
  if (len == 2 && IsYi(f) && result != 1 && IsBareEomiFinal(f->jongseong)) {
    const jeInfo bare = BareEomi(f->jongseong);
    if (bare.text != nullptr) {
      AddPart(e, kI, Pos::VC);
      AddPart(e, bare.text, bare.bits);
      result = 1;
    }
  }
  // 이 before an eomi that covers the rest of the run, after something.
  if (result == -1 && start >= 1 && IsYi(f) && len > 2 &&
      (f->jongseong == kNoFinal || IsBareEomiFinal(f->jongseong) ||
       f->jongseong == kJongBieup)) {
    SearchJEInfo sjei;
    if (dictionary->SearchJE(part.CStr(2), sjei) == len - 2 &&
        (sjei.jeti.bits & Pos::E_) != 0) {
      // The final names the class: none (1) is the eomi as written.
      jeInfo reading;
      dictionary->GetJEInfo(reading, sjei, f->jongseong);
      if (reading.text != nullptr && (reading.attach & 0x0001) != 0) {
        AddPart(e, kI, Pos::VC);
        AddPart(e, reading.text, reading.bits);
        result = 1;
      }
    }
  }
  if (result != -1) return result;

  // The run, or what the counter left of it, as a word of its own.
  const int32_t from = state == 1 ? 2 : state == 2 ? resume : 0;
  if (from >= len) return 1;  // the counter took the whole run
  mixedPart.SetText(part.CStr(from), EojulType::kDoubleByte);
  const int32_t savedContext = contextCode;
  if (contextCode != 5) contextCode = 1;
  const bool savedTried = compoundTried;
  const int r = AnalyzeEojul(mixedPart);
  compoundTried = compoundTried || savedTried;
  contextCode = savedContext;
  mixedPart.EndCandidate();
  ScoreAllCandidates(mixedPart);
  JoinPart(e, mixedPart);
  return r;
}

int MAnalyzer::AnalyzeHangulPart(Eojul& e, StringEx& part, unsigned start) {
  const Dictionary* dictionary = Knowledge();
  const int32_t len = part.Length();
  int result = -1;
  SearchJEInfo sjei;
  const int32_t key = dictionary->SearchJE(part, sjei);
  if (start > 0 && len > 0 && key == len &&
      (sjei.jeti.bits & Pos::J_) != 0) {
    SearchInfo si;
    const bool noun = dictionary->SearchMain(part, si) != 0 &&
                      (si.info.bits & Pos::N_) != 0;
    if (len == 2 || !noun) {
      AddPart(e, part.CStr(), Pos::J_);
      result = 1;
    }
  }
  return PartTail(e, part, start, result, 0, 0);
}

int MAnalyzer::AnalyzeCountedPart(Eojul& e, StringEx& part, unsigned start) {
  const Dictionary* dictionary = Knowledge();
  const char* text = part.CStr();
  const int32_t len = part.Length();
  int result = -1;
  int state = 0;
  int32_t resume = 0;

  // The run as one word: only at the head of the token for the open
  // classes, then 여 after a number, then a counter.
  SearchInfo whole;
  const uint32_t wholeBits =
      dictionary->SearchMain(part, whole) != 0 ? whole.info.bits : 0;
  const bool numberBefore = HasOpenMorphemes(e);
  const bool marked = (whole.info.marks & 1) != 0;
  if (!numberBefore) {
    uint32_t mask = 0;
    if ((wholeBits & kMmBit) != 0) {
      mask = Pos::MM;
    } else if ((wholeBits & kMaBit) != 0) {
      mask = Pos::MA;
    } else if (HasAll(wholeBits, Pos::NNG)) {
      mask = marked ? Pos::NFG : Pos::NNG;
    } else if (HasAll(wholeBits, Pos::NNP)) {
      AddNounPart(e, part, 'P');
      result = 1;
    } else if (HasAll(wholeBits, Pos::NNU)) {
      const StringEx pattern(whole.nnuText != nullptr ? whole.nnuText : "0");
      if (pattern == "0") {
        mask = marked ? Pos::NFU : Pos::NNU;
      } else {
        AddNounPart(e, part, 'U');
        result = 1;
      }
    }
    if (mask != 0) {
      AddPart(e, text, mask);
      result = 1;
    }
  }
  if (result != 1) {
    if (start >= 1 && part == kYeoSyllable) {
      AddPart(e, kYeoSyllable, Pos::XSN);
      result = 1;
    } else if (part == kYeogan) {
      AddPart(e, kYeoSyllable, Pos::XSN);
      AddPart(e, kGan, Pos::XSN);
      result = 1;
    }
  }
  if (result != 1) {
    const bool nnbCounter = HasAll(wholeBits, Pos::NNB) && OddText(whole.nnbText);
    const bool nuCounter = HasAll(wholeBits, Pos::NU) && OddText(whole.nuText);
    if (nnbCounter || nuCounter) {
      AddPart(e, text, nnbCounter ? Pos::NNB : Pos::NU);
      result = 1;
    }
  }
  // A run the rules above took whole needs no counter search.
  if (result == 1 || !numberBefore) {
    return PartTail(e, part, start, result, state, resume);
  }

  // Counter search: a counter of up to five syllables at the run's head.
  enum class Found { kNothing, kBoundAfterYeo, kCounter };
  Found found = Found::kNothing;
  SearchInfo si;
  uint32_t bits = 0;
  int32_t i = 10;
  for (; i >= 2; i -= 2) {
    if (i > len) continue;
    if (i == 2 && part.StartsWith(kYeoSyllable)) {
      // 여 before a bound noun: 10여명.
      for (int32_t j = len; j >= i + 2; j -= 2) {
        SearchInfo bound;
        if (dictionary->SearchMain(text + i, bound, j - i) != 0 &&
            HasAll(bound.info.bits, Pos::NNB)) {
          found = Found::kBoundAfterYeo;
          break;
        }
      }
      if (found != Found::kNothing) break;
      continue;
    }
    bits = dictionary->SearchMain(text, si, i) != 0 ? si.info.bits : 0;
    if (i >= 4 && !HasAll(bits, Pos::NNB) && AnyNoun(bits)) {
      // A noun stands at the head; what follows must not read as one.
      const int32_t rightLen = len - i;
      if (rightLen < 4) break;
      if (rightLen >= 8) {
        contextCode = 2;
        workText = text + i;
        pieceText = DivideNoun(workText.CStr(), contextCode);
        if (pieceText.Find('$') >= 0 || pieceText.Find('%') >= 0 ||
            pieceText.Find('U') >= 0 || pieceText.Find('B') >= 0 ||
            pieceText.Find('P') >= 0) {
          break;
        }
      } else {
        if (dictionary->SearchMain(text + i, si) != 0 &&
            (si.info.bits & Pos::N_) != 0) {
          break;
        }
        SearchJEInfo ending;
        dictionary->SearchJE(text + i, ending);
        if ((ending.jeti.bits & Pos::J_) != 0) break;
        // The counter test below reads the ending's bits.
        bits = ending.jeti.bits;
      }
    }
    if ((HasAll(bits, Pos::NNB) && OddText(si.nnbText)) ||
        (HasAll(bits, Pos::NU) && OddText(si.nuText))) {
      found = Found::kCounter;
      break;
    }
  }
  if (found == Found::kBoundAfterYeo) {
    AddPart(e, kYeoSyllable, Pos::XSN);
    return PartTail(e, part, start, -1, 1, 0);
  }
  if (found == Found::kNothing) return PartTail(e, part, start, -1, 0, 0);

  // The counter's mask, and what stands behind it.
  uint32_t mask = Pos::NNB;
  if (OddText(si.nuText) &&
      (!HasAll(bits, Pos::NNB) ||
       (si.nnbText != nullptr && !OddText(si.nnbText)))) {
    mask = Pos::NU;
  }
  const char* right = text + i;
  const int32_t rightLen = len - i;
  pieceText.Assign(text, i);
  const StringEx left(pieceText);
  const SyllableRec* s1 = HangulAt(right);
  const SyllableRec* s2 = rightLen >= 2 ? HangulAt(text + len - 2) : nullptr;
  if (s2 != nullptr && s2->choseong == kChoDigeut && s2->jungseong == kJungA &&
      s1 != nullptr && IsOpen(*s1)) {
    // The rest reads as a predicate ending in 다.
    return PartTail(e, part, start, result, state, resume);
  }
  bool predicateLike = false;
  if (s1 != nullptr && s1->choseong == kChoIeung &&
      (s1->jungseong == kJungI || s1->jongseong == kJongSsangSiot)) {
    SearchJEInfo behind;
    dictionary->SearchJE(right + 2, behind);
    const SyllableRec* s3 = rightLen >= 4 ? HangulAt(right + 2) : nullptr;
    if (s3 != nullptr) {
      predicateLike = IsYi(s3) || s3->jongseong == kJongSsangSiot ||
                      (behind.length > 0 && (behind.jeti.bits & Pos::E_) != 0);
    } else {
      predicateLike =
          s1->jongseong == kJongNieun || s1->jongseong == kJongRieul;
    }
  }

  // The first josa behind the counter, perhaps after a suffix (씩, 당).
  SearchJEInfo sjei;
  bool josa = false;
  int32_t p = i;
  for (; p < len; p += 2) {
    sjei = SearchJEInfo();
    if (dictionary->SearchJE(text + p, sjei) > 0 &&
        (sjei.jeti.bits & Pos::J_) != 0) {
      josa = true;
      break;
    }
  }
  if (p > len) p = len;
  bool middle = false;
  if (p > i) {
    middle = dictionary->IsXSN(right, p - i) != 0;
    if (!middle) return PartTail(e, part, start, result, state, resume);
  }
  jeInfo reading;
  dictionary->GetJEInfo(reading, sjei, 0);
  const SyllableRec* before = p >= 2 ? HangulAt(text + p - 2) : nullptr;
  if (before == nullptr) return PartTail(e, part, start, result, state, resume);

  if (josa && !predicateLike && sjei.length == len - p &&
      Dictionary::CheckAttach(*before, reading) >= 1) {
    AddPart(e, left.CStr(), mask);
    if (middle) {
      pieceText.Assign(right, p - i);
      AddPart(e, pieceText.CStr(), Pos::XSN);
      AddPart(e, text + p, Pos::J_);
    } else {
      AddPart(e, right, Pos::J_);
    }
    state = 3;
    result = 1;
  } else if (!predicateLike && (sjei.jeti.bits & Pos::E_) == 0) {
    AddPart(e, left.CStr(), mask);
    if (rightLen > 0 && dictionary->IsXSN(right) != 0) {
      AddPart(e, right, Pos::XSN);
      state = 3;
      result = 1;
    } else if (rightLen == 4 && StringEx(right) == kYeogan) {
      AddPart(e, kYeoSyllable, Pos::XSN);
      AddPart(e, kGan, Pos::XSN);
      state = 3;
      result = 1;
    } else {
      state = 2;
      resume = i;
    }
  }

  // A predicate-like rest: the counter stands when a noun follows it.
  if (state == 0) {
    partHits.clear();
    dictionary->SearchAll(right, partHits, 0, 0, 0, 1, 0, 0);
    uint32_t hitBits = 0;
    for (const SearchInfo& hit : partHits) {
      if (hit.start == 0) {
        hitBits = hit.info.bits;
        break;
      }
    }
    if (AnyNoun(hitBits)) {
      AddPart(e, left.CStr(), mask);
      state = 2;
      resume = i;
    }
  }
  return PartTail(e, part, start, result, state, resume);
}

}  // namespace Quorel
