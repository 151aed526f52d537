// The tagger's two rule files under <knowledge>/sinfo: erule.klg maps a whole
// eojul to a candidate number, grule.klg holds patterns over neighbouring
// eojuls (one of them in focus). Both are CP949 text; a bad line is reported
// on standard error with its text and never stops the file.
#ifndef QRLSL_KNOWLEDGE_RULE_FILES_H_
#define QRLSL_KNOWLEDGE_RULE_FILES_H_

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Quorel {

class Dictionary;

// A condition on one morpheme of a candidate.
struct MorphemeInfo {
  int32_t index = 0;       // 0 any morpheme, -1 the last, n > 0 the n-th
  uint32_t tagMask = 0;    // tag condition, 0 for none
  uint32_t otherMask = 0;  // exclusion condition on other candidates
  std::string lexiconList; // ":a:!b:#2:" as written, empty for none
  std::map<std::string, int32_t> lexicons;  // alternatives ("!b" kept so)
};

// The pattern one eojul of a group rule must meet.
struct EojulInfo {
  int32_t place = 0;  // 0 anywhere, 1 only first, 2 not first, 3 only last
  int32_t morphCount = 0;      // > 0: the candidate's morpheme count
  int32_t candidateCount = 0;  // > 0: the eojul's candidate count
  std::vector<MorphemeInfo> morphemes;
};

// A group rule: patterns of neighbouring eojuls, left to right.
struct Grule {
  int32_t focus = 0;  // index in eojuls of the current eojul's pattern
  std::vector<EojulInfo> eojuls;
};

// path/sinfo/erule.klg into eojulRuleTrie; the last line of a key wins.
// 1 after the file, 0 when it can't be opened or the trie can't be made.
int LoadEojulRuleFile(Dictionary& dictionary, const char* path);
// path/sinfo/grule.klg onto groupRules, in file order. 1 after the file, 0
// when it can't be opened.
int LoadGroupRuleFile(Dictionary& dictionary, const char* path);
// One tab-separated grule.klg line; pushes its Grule unless the line ends in
// an empty pattern. False when the line was dropped.
bool ParseGroupRuleLine(std::vector<Grule>& rules, const std::string& line);
// Pattern number k of g (text p) parsed onto g.eojuls; -1 (and reported)
// on a bad item, in which case nothing is pushed. 1 otherwise.
int ParseEojulPattern(Grule& g, const std::string& p, int k);
// "[index][tags][lexicons]" (the last two optional) into info; -1 when the
// index field is missing or not digits or "$", 1 otherwise.
int ParseMorphemeCondition(MorphemeInfo& info, const std::string& t);
// The rule number of a whole eojul, -1 when it has none.
int GetEojulRule(const Dictionary& dictionary, const char* eojul);

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_RULE_FILES_H_
