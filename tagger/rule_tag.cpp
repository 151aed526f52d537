// RuleTag, the first pass of tagging mode 1: the knowledge's eojul rules and
// group rules decide what they can; the rest goes on with all candidates.
#include <cstring>

#include "knowledge/dictionary.h"
#include "knowledge/rule_files.h"
#include "tagger/rule_match.h"
#include "tagger/tagger.h"
#include "text/syllable_table.h"

namespace Quorel {

namespace {

constexpr uint32_t kJosaBit = 0x00800000;
constexpr uint32_t kEomiBit = 0x00400000;
constexpr uint32_t kCopula = 0x08000000;
constexpr uint32_t kPrefinal = 0x00402000;
constexpr uint8_t kChoIeung = 13;
constexpr uint8_t kJungI = 29;
constexpr uint8_t kJongNieun = 5;
constexpr uint8_t kJongRieul = 9;
constexpr uint8_t kJongBieup = 19;
constexpr uint8_t kJongSsangSiot = 22;

const char kI[] = "\xC0\xCC";     // 이
const char kEot[] = "\xBE\xFA";   // 었

// The reading the knowledge keeps for a bare final ㄴ or ㄹ; blank for ㅂ.
jeInfo BareFinalReading(const Dictionary& dictionary, int jong) {
  jeInfo out;
  size_t record = jong == kJongNieun ? 0 : jong == kJongRieul ? 1 : 99;
  if (record >= dictionary.jamoEomiInfos.size()) return out;
  SearchJEInfo sjei;
  sjei.jeti = dictionary.jamoEomiInfos[record];
  return dictionary.GetJEInfo(out, sjei, jong);
}

size_t Length(const char* text) {
  return text != nullptr ? std::strlen(text) : 0;
}

}  // namespace

void Tagger::AddForcedCandidates(Eojul& e) {
  const char* surface = e.GetString();
  const size_t length = std::strlen(surface);
  SearchJEInfo sjei;
  jeInfo reading;
  dictionary->SearchJE(surface, sjei);
  dictionary->GetJEInfo(reading, sjei, 0);
  if ((sjei.jeti.bits & kJosaBit) != 0 && reading.text != nullptr &&
      Length(reading.text) == length) {
    // A closing-quote eojul that is one whole josa.
    Prepare(e);
    temp.BeginCandidate();
    temp.AddMorpheme(surface, kJosaBit);
    temp.EndCandidate();
    e.BeginCandidate();
    e.AppendMorphemes(temp);
    e.EndCandidate();
  }
  if (length < 2) return;
  const SyllableRec* first = SyllableAt(surface);
  if (first == nullptr || first->choseong != kChoIeung ||
      (first->jungseong != kJungI && first->jongseong != kJongSsangSiot)) {
    return;
  }
  // A copula form: 이 (and 었 for a final ㅆ) before the ending that follows.
  const int f = first->jongseong;
  SearchJEInfo rest;
  dictionary->SearchJE(surface + 2, rest);
  size_t lengthUnderTest = length;
  uint32_t bits = rest.jeti.bits;
  if (f == kJongRieul || f == kJongNieun || f == kJongBieup) {
    if (length == 2) {
      reading = BareFinalReading(*dictionary, f);
      bits = reading.bits;
    } else {
      dictionary->GetJEInfo(reading, rest, f);
    }
    lengthUnderTest += 2;
  } else {
    dictionary->GetJEInfo(reading, rest, 1);
  }
  if ((bits & kEomiBit) == 0 || reading.text == nullptr ||
      Length(reading.text) + 2 != lengthUnderTest) {
    return;
  }
  Prepare(e);
  temp.BeginCandidate();
  temp.AddMorpheme(kI, kCopula);
  if (f == kJongSsangSiot) temp.AddMorpheme(kEot, kPrefinal);
  temp.AddMorpheme(reading.text, reading.bits);
  temp.EndCandidate();
  e.BeginCandidate();
  e.AppendMorphemes(temp);
  e.EndCandidate();
}

int Tagger::RuleTag() {
  ClearResults();
  const int last = Last();
  int ok = 0;
  for (int i = 0; i <= last; ++i) {
    Eojul& e = *(*input)[i];
    ok = 0;
    done = 0;
    const uint32_t type = e.GetType();
    if ((type & EojulType::kDoubleByte) != 0 &&
        (type & EojulType::kClosed) != 0) {
      AddForcedCandidates(e);
    }
    const int n = e.GetListSize();
    if (n <= 1) {
      Place(e);
      ok = 1;
      continue;
    }
    Prepare(e);
    int v = GetEojulRule(*dictionary, e.GetString());
    if (v >= 0) {
      // A number out of range leaves the eojul out of the results.
      if (v < n) {
        Select(v);
        ok = 1;
      }
      continue;
    }
    SetNeighbours(i);
    for (int c = 0; c < n && ok == 0; ++c) ok = MatchGroupRules(c, i);
    if (ok == 0) Place(e);
  }
  return ok;
}

int Tagger::MatchGroupRules(int c, int i) {
  Eojul& e = *current;
  const int last = Last();
  const std::vector<Grule>& rules = dictionary->groupRules;
  int ok = 0;
  for (size_t r = 0; r < rules.size() && ok == 0; ++r) {
    const int rule = static_cast<int>(r);
    const int focus = rules[r].focus;
    const int len = static_cast<int>(rules[r].eojuls.size());
    // A focus beyond the patterns (one of them failed to parse) is as bad
    // as a negative one.
    if (focus < 0 || len < 1 || focus >= len) {
      Log() << "The format of this rule is fault : " << rule << '\n';
      continue;
    }
    if (i == 0 && (len == 3 || focus >= 1)) continue;
    if (i == last && len == 3) continue;
    if (i == last && len == 2 && focus == 0) continue;
    const EojulInfo& pattern = rules[r].eojuls[focus];
    if (!pattern.morphemes.empty()) {
      // The anchor: the first condition's morpheme must carry its tag bits.
      const MorphemeInfo& first = pattern.morphemes[0];
      int p = 0;
      if (first.index == -1) {
        p = e.GetCount(c) - 1;
      } else if (first.index > 0) {
        p = first.index - 1;
        if (p >= e.GetCount(c)) continue;
      }
      if (first.index != 0) {
        uint32_t tag = e.GetPOS(c, p);
        if ((tag & first.tagMask) != tag) continue;
      }
    }
    ok = MatchEojul(pattern, e, i, last, c, rule, Log());
    if (ok == 0) continue;
    if (ok > 0 && focus >= 1 && i == 0) {
      ok = 0;
      continue;
    }
    if (ok > 0 && i >= 1 && focus >= 1) {
      // Only the chosen candidate of the previous eojul is looked at.
      if (results.empty()) {
        ok = 0;
        continue;
      }
      previous = &results.back();
      ok &= MatchEojul(rules[r].eojuls[focus - 1], *previous,
                       resultCount - 1, last, 0, rule, Log());
      if (ok == 0) continue;
    }
    if (ok > 0 && focus < len - 1 && i == last) {
      ok = 0;
      continue;
    }
    if (ok > 0 && focus < len - 1) {
      int value = 0;
      for (int k = 0; k < next->GetListSize(); ++k) {
        value = MatchEojul(rules[r].eojuls[focus + 1], *next, i + 1, last, k,
                           rule, Log());
        if (value > 0) break;
      }
      ok &= value;
    }
    if (ok == 1) {
      Select(c);
      return ok;
    }
  }
  return ok;
}

}  // namespace Quorel
