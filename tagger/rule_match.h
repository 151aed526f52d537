// What a group rule's patterns mean against an eojul and one of its
// candidates. Results are 1 met, 0 not met, -1 malformed (the rule number
// is then written to `log` as "This rule is worng : " + number).
#ifndef QRLSL_TAGGER_RULE_MATCH_H_
#define QRLSL_TAGGER_RULE_MATCH_H_

#include <cstdint>
#include <ostream>

#include "eojul/eojul.h"
#include "knowledge/rule_files.h"

namespace Quorel {

// A mask with low bits admits tags wholly inside it; a family mask (no low
// bits) admits any tag that shares a bit with it.
bool TagTest(uint32_t mask, uint32_t tag);
// The value of text among the rule's alternatives, or -1.
int LookupLexicon(const MorphemeInfo& rule, const char* text);
// 1 when one morpheme's tag and text meet the condition; a condition
// without content matches nothing.
int MatchTagLexicon(const MorphemeInfo& rule, uint32_t tag,
                    const char* lexicon);
// The condition against candidate `candidate` of e; `start` is the first
// morpheme an any-morpheme condition looks at.
int MatchMorphemeRule(const MorphemeInfo& rule, Eojul& e, int candidate,
                      int ruleNumber, int start, std::ostream& log);
// The pattern against candidate `candidate` of e at sentence index i, of a
// sentence whose last index is `last`.
int MatchEojul(const EojulInfo& pattern, Eojul& e, int i, int last,
               int candidate, int ruleNumber, std::ostream& log);

}  // namespace Quorel

#endif  // QRLSL_TAGGER_RULE_MATCH_H_
