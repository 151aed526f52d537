// The josa and eomi search: every place where the tail of an eojul can be a
// josa or eomi (SearchSplits), and the analysis of what stands before one
// such place (AnalyzeSplit): the josa route over noun stems, the
// nominalised predicate, the contracted 하, and the eomi route.
#include <cstring>

#include "analyzer/literals.h"
#include "analyzer/m_analyzer.h"
#include "analyzer/syllable_tests.h"
#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"

namespace Quorel {

namespace {

constexpr uint32_t kJosaBit = 0x800000;  // bit 23 of a key: a josa reading
constexpr uint32_t kEomiBit = 0x400000;  // bit 22: an eomi reading
constexpr uint32_t kJxBit = 0x4;         // the key can be a JX
constexpr uint32_t kEtnKey = 0x1000;
constexpr uint32_t kPastMark = 0x80000000;

bool HasAll(uint32_t mask, uint32_t bits) { return (mask & bits) == bits; }

// None of IC, MA, MM, and not all bits of NNU, NNP, NNI, NNG.
bool NoPlainWordClass(uint32_t found) {
  return (found & (Pos::IC | Pos::MA | Pos::MM)) == 0 &&
         !HasAll(found, Pos::NNU) && !HasAll(found, Pos::NNP) &&
         !HasAll(found, Pos::NNI) && !HasAll(found, Pos::NNG);
}

// CheckJoin on the stem's last syllable `last`.
bool JoinsAfter(const SyllableRec* last, const char* ending) {
  const SyllableRec* first = FirstSyllableOf(ending);
  if (last == nullptr || first == nullptr) return false;
  return !(HasLetters(*first, 13, 27) && IsOpen(*last));
}

}  // namespace

const char* MAnalyzer::RestOf(Eojul& e) const {
  const char* surface = e.GetString();
  const int32_t len = static_cast<int32_t>(std::strlen(surface));
  return surface + (analysisLength < len ? analysisLength : len);
}

void MAnalyzer::AppendRest(LevelRec& level, Eojul& e) {
  // RestOf with the surface measured once: the rest's length is what the
  // surface has beyond the cut (the surface may be cut short in place).
  const char* surface = e.GetString();
  const int32_t len = static_cast<int32_t>(std::strlen(surface));
  const int32_t cut = analysisLength < len ? analysisLength : len;
  level.ending.Append(surface + cut, len - cut);
}

jeInfo MAnalyzer::FirstEomiReading(const SearchJEInfo& sjei) const {
  jeInfo out;
  const Dictionary* dictionary = Knowledge();
  const JosaEomiTrieInfo& t = sjei.jeti;
  if (t.eomiInfo0 > 0) return dictionary->GetJEInfo(out, sjei, 1);
  if (t.eomiInfo9 > 0) return dictionary->GetJEInfo(out, sjei, 9);
  if (t.eomiInfo5 > 0) return dictionary->GetJEInfo(out, sjei, 5);
  if (t.eomiInfo19 > 0) return dictionary->GetJEInfo(out, sjei, 19);
  if (t.eomiInfo17 > 0) return dictionary->GetJEInfo(out, sjei, 17);
  return out;
}

int MAnalyzer::SearchSplits(Eojul& e, bool rePass) {
  const char* text = e.GetString();
  return SearchSplitsOf(text, static_cast<int32_t>(std::strlen(text)), rePass);
}

int MAnalyzer::SearchSplitsOf(const char* text, int32_t wordLen, bool rePass) {
  jeCandidates.clear();
  const Dictionary* dictionary = Knowledge();
  // The trie holds the keys forwards: ask for the longest key at each
  // syllable boundary; an ending never starts at byte 0. One record serves
  // every boundary: a hit writes its length and jeti, and nothing here
  // writes its reserved field, so it reads as a fresh one would.
  SearchJEInfo sjeiT;
  for (int32_t pos = 2; pos < wordLen; pos += 2) {
    // The next boundary's search starts loading while this one runs.
    if (pos + 3 < wordLen) dictionary->jeTrie.PrefetchRootPair(text + pos + 2);
    if (dictionary->SearchJE(text + pos, sjeiT, wordLen - pos) <= 0) continue;

    if (pos + sjeiT.length < wordLen) {
      if ((sjeiT.jeti.bits & kEtnKey) != 0) continue;
      int32_t next = pos + sjeiT.length;
      const int32_t split = next;
      if ((sjeiT.jeti.bits & kJosaBit) != 0) {
        jeInfo josa;
        dictionary->GetJEInfo(josa, sjeiT, 0);
        // A josa doubled by the rest of the eojul is no first key.
        if ((josa.attach & 0x0020) != 0 ||
            (josa.text != nullptr && std::strcmp(josa.text, text + split) == 0)) {
          continue;
        }
      }
      SearchJEInfo sjeiH;
      if (dictionary->SearchJE(text + next, sjeiH, wordLen - next) <= 0 ||
          rePass) {
        continue;
      }
      if ((sjeiT.jeti.bits & kEomiBit) != 0 && (sjeiH.jeti.bits & kJxBit) != 0) {
        jeInfo second;
        dictionary->GetJEInfo(second, sjeiH, 0);
        if ((second.attach & (0x0010 | 0x0040)) != 0) continue;
        if ((FirstEomiReading(sjeiT).attach & 0x0400) != 0) continue;
      }
      // A run of JX keys may follow the first key (에서 + 도).
      while ((sjeiH.jeti.bits & kJxBit) != 0 && sjeiH.length + next < wordLen) {
        next += sjeiH.length;
        if (dictionary->SearchJE(text + next, sjeiH, wordLen - next) <= 0) {
          break;
        }
      }
      if ((sjeiH.jeti.bits & kJxBit) != 0 && next + sjeiH.length == wordLen) {
        SearchJEInfo accepted = sjeiT;
        accepted.length = pos;
        accepted.reserved = split;
        jeCandidates.push_back(accepted);
      }
      continue;
    }

    // The key reaches the end of the eojul.
    if (rePass && (sjeiT.jeti.bits & kEomiBit) != 0 &&
        (FirstEomiReading(sjeiT).attach & 0x0800) != 0) {
      continue;
    }
    SearchJEInfo accepted = sjeiT;
    accepted.length = pos;
    accepted.reserved = 0;
    jeCandidates.push_back(accepted);
  }
  return 1;
}

int MAnalyzer::AnalyzeSplit(Eojul& e, const SearchJEInfo& sjei) {
  const Dictionary* dictionary = Knowledge();
  const unsigned type = e.GetType();
  const bool rePass = (type & EojulType::kSubToken) != 0;
  int result = 0;
  bool attachOk = true;
  curJe = jeInfo();
  curJongJe = jeInfo();
  levels[levelIndex].stem.Assign(e.GetString(), sjei.length);

  if ((sjei.jeti.bits & kJosaBit) != 0) dictionary->GetJEInfo(curJe, sjei, 0);

  if (curJe.text != nullptr && (curJe.bits & kJosaBit) != 0) {
    // The josa route.
    LevelRec& level = levels[levelIndex];
    const SyllableRec* syl = LastSyllableOf(level.stem);
    if (syl == nullptr) return result | RouteStatus::kNoSyllable;
    const jeInfo saved = curJe;
    SetEnding(level, curJe.text, e);
    level.endingBits = curJe.bits;

    if (!rePass) {
      attachOk = Dictionary::CheckAttach(*syl, curJe) != 0;
      if (attachOk) {
        if ((curJe.attach & 0x0008) != 0) {
          result |= NounStem(e, 0x40000020) & RouteStatus::kCandidate;
        } else if ((NounStem(e, 0x4200046F) & RouteStatus::kCandidate) != 0) {
          result |= RouteStatus::kCandidate;
          foundMask |= Pos::J_;
          // A josa of exactly two bytes, without measuring it.
          const char* josa = curJe.text;
          if (josa[0] != 0 && josa[1] != 0 && josa[2] == 0 &&
              NoPlainWordClass(foundMask)) {
            compoundState = 2;
          }
        }
      }
    }

    // A nominalised predicate before the josa: final ㅁ, or the syllable 기.
    const bool isGi = IsSyllable(*syl, Hangul::kGi);
    if (sjei.reserved == 0 && (curJe.attach & (0x0010 | 0x0008)) == 0 &&
        (syl->jongseong == 17 || isGi)) {
      LevelRec& upper = levels[levelIndex + 1];
      if (syl->jongseong == 17 && !HasLetters(*syl, 13, 27) &&
          Dictionary::CheckAttach(*syl, saved) != 0) {
        upper.stem = level.stem;
        upper.ending.Clear();
        upper.endingBits = 0;
        levelIndex += 1;
        if ((AnalyzeWhole(e) & RouteStatus::kCandidate) != 0) {
          result |= RouteStatus::kCandidate;
          nounStage = 1;
        }
      } else {
        // The last syllable is an ETN.
        const int32_t stemLen = level.stem.Length();
        upper.ending.Assign(level.stem.CStr(stemLen - 2), 2);
        upper.endingBits = Pos::ETN;
        upper.stem.Assign(level.stem.CStr(), stemLen - 2);
        SearchJEInfo etn;
        dictionary->SearchJE(upper.ending, etn, 2);
        levelIndex += 1;
        if ((AnalyzeEomi(e, etn) & RouteStatus::kCandidate) != 0) {
          result |= RouteStatus::kCandidate;
          nounStage = 2;
        }
      }
      levelIndex -= 1;
      curJe = saved;
    }

    // A noun with a josa and a suffix or a copula is no compound.
    if (compoundState >= 1 && (HasAll(foundMask, 0x40A00000) ||
                               HasAll(foundMask, 0x48800000))) {
      compoundState = 0;
    }

    // Contracted 하 on short stems and endings.
    LevelRec& now = levels[levelIndex];
    if (now.stem.Length() < 9 && now.ending.Length() < 4) {
      int r = 0;
      if ((foundMask & Pos::N_) == 0 && (syl->flags & kChiToHa) != 0) {
        r = ContractedHa(e, HaContraction::kChi);
      } else if ((syl->flags & kKeToHa) != 0) {
        r = ContractedHa(e, HaContraction::kKe);
      } else if (HasLetters(*syl, 17, 29) && syl->jongseong == kNoFinal) {
        r = ContractedHa(e, HaContraction::kKi);
      }
      result |= r & RouteStatus::kCandidate;
    }

    // A stem that only the noun analysis can still explain.
    if (analysisResult == 0 && (result & RouteStatus::kCandidate) == 0 &&
        attachOk && !rePass && (foundMask & kPastMark) == 0 &&
        (curJe.attach & 0x0008) == 0 &&
        analysisLength == static_cast<int32_t>(std::strlen(e.GetString()))) {
      if (pendingNounEnding < EojulPool::kCapacity) {
        StemEnd& entry = eojulPool.stemEnds[pendingNounEnding++];
        entry.length = sjei.length;
        entry.reading = saved;
      }
      if (curJongJe.text == nullptr && curJe.text != nullptr &&
          (curJe.attach & 0x0080) != 0) {
        verbState = 1;
      }
    }

    if ((result & RouteStatus::kCandidate) == 0) {
      levels[levelIndex].endingBits &= ~curJe.bits;
    }
  }

  // The eomi route.
  if ((sjei.jeti.bits & kEomiBit) != 0) {
    dictionary->GetJEInfo(curJe, sjei, 1);
    LevelRec& level = levels[levelIndex];
    if (curJe.text != nullptr) {
      SetEnding(level, curJe.text, e);
    } else {
      level.ending.Clear();
    }
    level.endingBits = curJe.bits;
    result |= AnalyzeEomi(e, sjei) & RouteStatus::kCandidate;
  }
  return result;
}

jeInfo MAnalyzer::BareEomi(int jong) const {
  jeInfo out;
  const Dictionary* dictionary = Knowledge();
  // Records 0, 1, 2 of the jamo endings are ㄴ, ㄹ, ㅁ.
  size_t record;
  switch (jong) {
    case 5: record = 0; break;
    case 9: record = 1; break;
    case 17: record = 2; break;
    default: return out;
  }
  if (dictionary == nullptr || dictionary->jamoEomiInfos.size() <= record) {
    return out;
  }
  SearchJEInfo sjei;
  sjei.jeti = dictionary->jamoEomiInfos[record];
  return dictionary->GetJEInfo(out, sjei, jong);
}

bool MAnalyzer::CheckJoin(const char* stem, const char* ending) {
  return JoinsAfter(LastSyllable(stem), ending);
}

bool MAnalyzer::CheckJoin(const StringEx& stem, const char* ending) {
  return JoinsAfter(LastSyllableOf(stem), ending);
}

}  // namespace Quorel
