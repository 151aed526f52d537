// The group-rule matcher: tag and lexicon tests of a morpheme, morpheme
// conditions over a candidate, eojul patterns over an eojul.
#include "tagger/rule_match.h"

#include <cstring>

namespace Quorel {

namespace {

bool HasText(const char* text) { return text != nullptr && text[0] != '\0'; }

// True when "!" + lexicon is one of the rule's alternatives: a refused form.
bool Refused(const MorphemeInfo& rule, const char* lexicon) {
  std::string negated = "!";
  negated += lexicon;
  return rule.lexicons.count(negated) != 0;
}

void WriteWrong(std::ostream& log, int ruleNumber) {
  log << "This rule is worng : " << ruleNumber << '\n';
}

}  // namespace

bool TagTest(uint32_t mask, uint32_t tag) {
  if ((mask & 0xFFFF) != 0) return (tag & mask) == tag;
  return (tag & mask) != 0;
}

int LookupLexicon(const MorphemeInfo& rule, const char* text) {
  auto found = rule.lexicons.find(text != nullptr ? text : "");
  return found == rule.lexicons.end() ? -1 : found->second;
}

int MatchTagLexicon(const MorphemeInfo& rule, uint32_t tag,
                    const char* lexicon) {
  const std::string& list = rule.lexiconList;
  if (list.empty() && rule.tagMask == 0 && rule.otherMask == 0) return 0;
  if (tag != 0 && rule.tagMask != 0 && !TagTest(rule.tagMask, tag)) return 0;
  int ok = 1;
  if (!HasText(lexicon) || list.empty()) return ok;
  if (LookupLexicon(rule, lexicon) >= 0) {
    ok = 1;
  } else {
    // Not named: admitted only when every alternative is a refused one.
    long colons = 0;
    long bangs = 0;
    for (char ch : list) {
      if (ch == ':') ++colons;
      if (ch == '!') ++bangs;
    }
    ok = colons - 1 == bangs ? 1 : 0;
  }
  if (ok == 1 && Refused(rule, lexicon)) ok = 0;
  size_t hash = list.find('#');
  if (hash != std::string::npos && hash + 1 < list.size() &&
      list[hash + 1] >= '0' && list[hash + 1] <= '9') {
    // "#n": at least n syllables.
    size_t minimum = static_cast<size_t>(list[hash + 1] - '0');
    size_t syllables = std::strlen(lexicon) / 2;
    if (ok == 1 && syllables < minimum) return 0;
    if (ok == 0 && list.find(':') == std::string::npos && syllables >= minimum) {
      ok = 1;
    }
  }
  return ok;
}

int MatchMorphemeRule(const MorphemeInfo& rule, Eojul& e, int candidate,
                      int ruleNumber, int start, std::ostream& log) {
  const int m = e.GetCount(candidate);
  const int c = e.GetListSize();
  int matched = 0;
  if (rule.index == 0) {
    for (int p = start; p < m && matched == 0; ++p) {
      matched = MatchTagLexicon(rule, e.GetPOS(candidate, p),
                                e.GetLexicon(candidate, p));
      if (rule.otherMask == 0 || matched != 1) continue;
      for (int q = candidate; q < c; ++q) {
        if (e.GetCount(q) > p && TagTest(rule.otherMask, e.GetPOS(q, p))) {
          matched = 0;
          break;
        }
      }
    }
    if (rule.otherMask != 0 && matched == 1) {
      for (int p = 0; p < m; ++p) {
        const char* lexicon = e.GetLexicon(candidate, p);
        if (TagTest(rule.otherMask, e.GetPOS(candidate, p)) ||
            (HasText(lexicon) && !rule.lexiconList.empty() &&
             Refused(rule, lexicon))) {
          matched = 0;
          break;
        }
      }
    }
    return matched;
  }
  int p;
  if (rule.index == -1) {
    p = m - 1;
  } else if (rule.index < 0) {
    WriteWrong(log, ruleNumber);
    return -1;
  } else {
    if (rule.index - 1 >= m) return 0;
    p = rule.index - 1;
  }
  matched = MatchTagLexicon(rule, e.GetPOS(candidate, p),
                            e.GetLexicon(candidate, p));
  if (matched == 1 && rule.otherMask != 0) {
    // Every candidate counts here, the one under test included.
    for (int q = 0; q < c; ++q) {
      if (e.GetCount(q) > p && TagTest(rule.otherMask, e.GetPOS(q, p))) {
        matched = 0;
        break;
      }
    }
  }
  return matched;
}

int MatchEojul(const EojulInfo& pattern, Eojul& e, int i, int last,
               int candidate, int ruleNumber, std::ostream& log) {
  switch (pattern.place) {
    case 0: break;
    case 1: if (i != 0) return 0; break;
    case 2: if (i < 1) return 0; break;
    case 3: if (i != last) return 0; break;
    default:
      WriteWrong(log, ruleNumber);
      return -1;
  }
  if (pattern.candidateCount > 0 &&
      pattern.candidateCount != e.GetListSize()) {
    return 0;
  }
  if (pattern.morphCount > 0 && pattern.morphCount != e.GetCount(candidate)) {
    return 0;
  }
  if (pattern.morphemes.empty()) return pattern.place != 0 ? 1 : 0;
  for (size_t k = 0; k < pattern.morphemes.size(); ++k) {
    if (MatchMorphemeRule(pattern.morphemes[k], e, candidate, ruleNumber,
                          static_cast<int>(k), log) < 1) {
      return 0;
    }
  }
  return 1;
}

}  // namespace Quorel
