// Reading erule.klg and grule.klg, and the parsers of a group rule's eojul
// patterns and morpheme conditions.
#include "knowledge/rule_files.h"

#include <cstdio>
#include <cstdlib>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "knowledge/line_fields.h"
#include "knowledge/tagger_files.h"

namespace Quorel {

namespace {

const char kFault[] = "The format of this rule is fault : ";

void ReportFault(const char* number, const std::string& text) {
  Report(number, kFault, text.c_str());
}

// Opens path/sinfo/name for reading; null when it can't be.
std::FILE* OpenRuleFile(const char* path, const char* name) {
  return std::fopen(SinfoPath(path, name).c_str(), "rb");
}

// The value of a digit character, 0 for anything else.
int32_t DigitValue(char c) { return c >= '0' && c <= '9' ? c - '0' : 0; }

// The tag names of a tags field into the two masks.
void ParseTags(MorphemeInfo& info, const std::string& field) {
  size_t start = 0;
  while (start <= field.size()) {
    size_t colon = field.find(':', start);
    if (colon == std::string::npos) colon = field.size();
    std::string name = field.substr(start, colon - start);
    if (!name.empty() && name[0] == '!') {
      info.otherMask |= PosCodeOf(name.c_str() + 1);
    } else {
      info.tagMask |= PosCodeOf(name.c_str());
    }
    start = colon + 1;
  }
}

// The lexicon field: kept whole, and its inner text split at ":".
void ParseLexicons(MorphemeInfo& info, const std::string& field) {
  info.lexiconList = field;
  std::string inner =
      field.size() >= 2 ? field.substr(1, field.size() - 2) : std::string();
  int32_t number = 0;
  size_t start = 0;
  while (start <= inner.size()) {
    size_t colon = inner.find(':', start);
    if (colon == std::string::npos) colon = inner.size();
    info.lexicons[inner.substr(start, colon - start)] = number++;
    start = colon + 1;
  }
}

}  // namespace

int LoadEojulRuleFile(Dictionary& dictionary, const char* path) {
  std::FILE* in = OpenRuleFile(path, "erule.klg");
  if (in == nullptr) return 0;
  QR_DaTrie& trie = dictionary.eojulRuleTrie;
  if (trie.bc == nullptr) {
    int32_t size = Dictionary::kTrieSize;
    if (trie.Create(size, size, size, size) < 0) {
      Report("Can't create eojul rule list trie. So dictonaries are not "
             "created...");
      std::fclose(in);
      return 0;
    }
  }
  StringEx raw;
  while (ReadLine(in, raw)) {
    std::string line(raw.CStr(), raw.Length());
    if (IsCommentLine(line)) continue;
    size_t tab = line.find('\t');
    if (tab == std::string::npos) {
      ReportFault("[0]", line);
      continue;
    }
    std::string key = Trimmed(line.substr(0, tab));
    if (key.empty()) {
      ReportFault("[1]", key);
      continue;
    }
    std::string rest = line.substr(tab + 1);
    std::string number = Trimmed(rest);
    if (number.empty()) {
      ReportFault("[2]", rest);
      continue;
    }
    if (!AllDigits(number)) {
      ReportFault("[3]", number);
      continue;
    }
    TrieNode node;
    if (trie.Insert(key.c_str(), node) == 0) {
      ReportFault("[4]", line);
      continue;
    }
    QR_DaTrie::SetValue(node, std::atoi(number.c_str()));
  }
  std::fclose(in);
  return 1;
}

int LoadGroupRuleFile(Dictionary& dictionary, const char* path) {
  std::FILE* in = OpenRuleFile(path, "grule.klg");
  if (in == nullptr) return 0;
  StringEx raw;
  while (ReadLine(in, raw)) {
    std::string line(raw.CStr(), raw.Length());
    if (IsCommentLine(line) || line.find('@') == std::string::npos) continue;
    ParseGroupRuleLine(dictionary.groupRules, line);
  }
  std::fclose(in);
  return 1;
}

bool ParseGroupRuleLine(std::vector<Grule>& rules, const std::string& line) {
  Grule g;
  int k = 0;
  size_t start = 0;
  for (size_t tab = line.find('\t'); tab != std::string::npos;
       tab = line.find('\t', start)) {
    ParseEojulPattern(g, Trimmed(line.substr(start, tab - start)), k++);
    start = tab + 1;
  }
  std::string rest = Trimmed(line.substr(start));
  if (rest.empty()) {
    ReportFault("", line);
    return false;
  }
  ParseEojulPattern(g, rest, k);
  rules.push_back(g);
  return true;
}

int ParseEojulPattern(Grule& g, const std::string& p, int k) {
  EojulInfo info;
  MorphemeInfo scratch;
  const size_t length = p.size();
  size_t i = 0;
  while (i < length) {
    switch (p[i]) {
      case '#':
        ++i;
        info.morphCount = i < length ? DigitValue(p[i]) : 0;
        ++i;
        break;
      case '%':
        ++i;
        info.candidateCount = i < length ? DigitValue(p[i]) : 0;
        ++i;
        break;
      case '@':
        if (k < 0) {
          ReportFault("", p);
          return -1;
        }
        g.focus = k;
        break;
      case 'F': info.place = 1; break;
      case 'N': info.place = 2; break;
      case 'E': info.place = 3; break;
      case '[': {
        size_t plus = p.find('+', i);
        if (plus == std::string::npos) plus = length;
        std::string condition = p.substr(i, plus - i);
        i = plus;
        if (ParseMorphemeCondition(scratch, condition) < 0) {
          ReportFault("", p);
          return -1;
        }
        info.morphemes.push_back(scratch);
        scratch = MorphemeInfo();
        break;
      }
      default:
        ReportFault("", p);
        return -1;
    }
    ++i;  // passes over the character behind a digit, and the "+"
  }
  g.eojuls.push_back(info);
  return 1;
}

int ParseMorphemeCondition(MorphemeInfo& info, const std::string& t) {
  size_t close = t.find(']');
  if (close == std::string::npos) return -1;
  std::string index = t.substr(1, close - 1);
  if (AllDigits(index)) {
    info.index = std::atoi(index.c_str());
  } else if (index == "$") {
    info.index = -1;
  } else {
    return -1;
  }
  // The character behind each "]" stands for the next "[" and is not read.
  size_t open = close + 2;
  if (open > t.size()) return 1;
  close = t.find(']', open);
  if (close == std::string::npos) return 1;
  std::string tags = t.substr(open, close - open);
  if (!tags.empty()) ParseTags(info, tags);
  open = close + 2;
  if (open > t.size()) return 1;
  close = t.find(']', open);
  if (close == std::string::npos) return 1;
  std::string lexicons = t.substr(open, close - open);
  if (!lexicons.empty()) ParseLexicons(info, lexicons);
  return 1;
}

int GetEojulRule(const Dictionary& dictionary, const char* eojul) {
  int32_t value = -1;
  return FindKeyValue(dictionary.eojulRuleTrie, eojul, value) ? value : -1;
}

}  // namespace Quorel
