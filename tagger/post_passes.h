// The optional passes that rework an analysed and scored eojul in place,
// named by the analyzer option that switches each on:
//   11 PassNumberUnit            a number and a bound noun offered joined
//   14 PassCompoundPrefixSuffix  prefix/suffix pieces joined into NNC
//   15 PassCompoundRun           runs of noun pieces joined into NNC
//   17 PassCompoundAffix         as 14 without the suffix stop list
//   19 PassCutAtUserNoun         the view cut at the first user noun
//   16 PassOffsets               each morpheme's place in the surface
// A pass reads the candidates the eojul shows (its view) and uses `scratch`
// as working storage.
#ifndef QRLSL_TAGGER_POST_PASSES_H_
#define QRLSL_TAGGER_POST_PASSES_H_

#include "eojul/eojul.h"

namespace Quorel {

// What the passes read of the analyzer, and the count of candidates they
// added that the next SelectTop must make room for.
struct PassContext {
  Eojul& scratch;
  signed char option0 = 0;   // candidates to keep
  signed char option17 = 0;  // mode of pass 17: 1 or 2
  bool compoundTried = false;
  signed char addedCount = 0;
};

void PassNumberUnit(Eojul& e, PassContext& context);
void PassCompoundPrefixSuffix(Eojul& e, PassContext& context);
void PassCompoundRun(Eojul& e, PassContext& context);
void PassCompoundAffix(Eojul& e, PassContext& context);
void PassCutAtUserNoun(Eojul& e);
void PassOffsets(Eojul& e);

}  // namespace Quorel

#endif  // QRLSL_TAGGER_POST_PASSES_H_
