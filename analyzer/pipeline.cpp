// The run operations of MAnalyzer: one eojul (RunWithEojul, directly or
// through the two-stage work eojul), and the flush of each token that the
// scanner closes in RunWithString and RunFile. The two orders of the post
// steps differ on purpose and are kept apart.
#include <utility>

#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"

namespace Quorel {

void MAnalyzer::AnalyzeAndSelect(Eojul& e) {
  AnalyzeEojul(e);
  ScoreAllCandidates(e);
  if (options[kUnknownEndingOption] > 0) GiveUpUnknownEnding(e);
  if (options[0] > 0) e.SelectTop(static_cast<unsigned char>(options[0]));
  extraTop = 0;
}

void MAnalyzer::KeepToUserNoun(Eojul& e) { PassCutAtUserNoun(e); }

void MAnalyzer::RunPass(void (*pass)(Eojul&, PassContext&), Eojul& e) {
  PassContext context{splitEojul};
  context.option0 = options[0];
  context.option17 = options[17];
  context.compoundTried = compoundTried;
  context.addedCount = extraTop;
  pass(e, context);
  extraTop = context.addedCount;
}

// Steps 6 and 7 of RunWithEojul: room for added candidates, then the cut at
// the first user noun.
void MAnalyzer::WidenAndCut(Eojul& e) {
  if (extraTop > 0) {
    e.SelectTop(static_cast<unsigned char>((options[0] + extraTop) & 255));
  }
  if ((options[0] > 0 || extraTop >= 1) && options[19] > 0) {
    KeepToUserNoun(e);
  }
}

int MAnalyzer::RunWithEojul() {
  if (eojul == nullptr) return 0;
  Eojul& e = *CurrentEojul();
  if (options[14] != 1 && options[15] != 1) {
    AnalyzeAndSelect(e);
    if (options[11] == 1) RunPass(PassNumberUnit, e);
    WidenAndCut(e);
    if (options[17] > 0) RunPass(PassCompoundAffix, e);
    if (options[16] == 1) PassOffsets(e);
    return 1;
  }
  // Two stages: analyse a copy, then hand the result back by CopyFrom.
  workEojul.Initialize(true);
  workEojul.SetText(e.GetString(), e.GetType());
  AnalyzeAndSelect(workEojul);
  if (options[11] == 1) RunPass(PassNumberUnit, workEojul);
  if (options[15] == 1) RunPass(PassCompoundRun, workEojul);
  WidenAndCut(workEojul);
  if (options[14] == 1) RunPass(PassCompoundPrefixSuffix, workEojul);
  if (options[16] == 1) PassOffsets(workEojul);
  e.CopyFrom(workEojul);
  return 1;
}

std::ostream& MAnalyzer::Output() { return streams.Out(); }

void MAnalyzer::FlushToken(const char* token, uint32_t length, unsigned type,
                           int tokenStart) {
  Eojul& current = *CurrentEojul();
  const bool keep = (exOption & ExOption::kKeepSentence) != 0;
  Eojul& e = keep ? NextInSentence(current) : current;
  e.SetText(token, length, type);
  AnalyzeScanned(e, token, length, type, current);
  e.SetOffset(tokenStart);
  if (options[0] > 0) e.SelectTop(static_cast<unsigned char>(options[0]));
  extraTop = 0;
  if (options[17] > 0) RunPass(PassCompoundAffix, e);
  if (options[11] == 1) RunPass(PassNumberUnit, e);
  if (extraTop > 0) {
    e.SelectTop(static_cast<unsigned char>((options[0] + extraTop) & 255));
  }
  if ((exOption & ExOption::kPrint) != 0 &&
      (exOption & ExOption::kTaggingMode) == 0) {
    e.Print(Output(), rawOutput);
  }
  if (!keep) {
    e.Initialize(true);
    return;
  }
  e.ShowAsCopy();
  // The current eojul ends a run cleared, as when it holds each token; here
  // it holds none, so once is enough.
  if (sentenceCount == 0) current.Initialize(true);
  ++sentenceCount;
}

void MAnalyzer::AnalyzeScanned(Eojul& e, const char* token, uint32_t length,
                               unsigned type, const Eojul& settings) {
  // The passes of options 11 and 17 read more of the analyzer than the
  // memo keeps (the split eojul, compoundTried): no memo with them.
  const bool memo = tokenMemoOn && options[11] != 1 && options[17] <= 0 &&
                    Knowledge() != nullptr;
  TokenMemo::Key key{};
  TokenMemo::Carried in;
  if (memo) {
    tokenMemo.Follow(Knowledge(), Knowledge()->generation,
                     (settings.keepCase ? 1u : 0u) |
                         (settings.numberPunctuation ? 2u : 0u));
    key = TokenMemo::KeyOf(token, length);
    // AnalyzeEojul keeps only context codes 1 and 5 of the token before.
    in.contextCode = contextCode == 1 || contextCode == 5 ? contextCode : 0;
    in.scoreFlow = scoreFlow;
    TokenMemo::Carried out;
    if (tokenMemo.Recall(key, token, length, type, in, e, out)) {
      contextCode = out.contextCode;
      scoreFlow = out.scoreFlow;
      return;
    }
  }
  flowUse = TokenMemo::FlowUse();
  AnalyzeEojul(e, static_cast<int32_t>(length));
  ScoreAllCandidates(e);
  if (options[kUnknownEndingOption] > 0) GiveUpUnknownEnding(e);
  if (memo) {
    tokenMemo.Keep(key, length, type, in, flowUse, e,
                   TokenMemo::Carried{contextCode, scoreFlow});
  }
}

Eojul& MAnalyzer::NextInSentence(const Eojul& current) {
  if (sentenceCount == sentence.size()) {
    if (!spareEojuls.empty()) {
      sentence.push_back(std::move(spareEojuls.back()));
      spareEojuls.pop_back();
    } else {
      sentence.emplace_back();
    }
  }
  Eojul& next = sentence[sentenceCount];
  next.TakeSettingsOf(current);
  return next;
}

void MAnalyzer::SetAsideUnused() {
  // Cleared first, an eojul moves as its blocks alone.
  while (sentence.size() > sentenceCount) {
    sentence.back().Initialize(true);
    spareEojuls.push_back(std::move(sentence.back()));
    sentence.pop_back();
  }
}

int MAnalyzer::RunWithString(const char* text) {
  if (text == nullptr || text[0] == 0) return 1;
  if (eojul == nullptr) return 0;
  line = text;
  sentenceCount = 0;
  ScanText(line.CStr(), line.Length());
  return 1;
}

int MAnalyzer::RunWithString(const char* text, const char* outputPath) {
  streams.OpenOutput(outputPath);
  return RunWithString(text);
}

void MAnalyzer::RunLine() {
  sentenceCount = 0;
  ScanText(line.CStr(), line.Length());
  if ((exOption & ExOption::kKeepSentence) != 0 &&
      (exOption & ExOption::kTaggingMode) != 0) {
    Tagging(0);
    // In tagging mode the tokens are printed once tagged.
    if ((exOption & ExOption::kPrint) != 0) {
      for (size_t i = 0; i < sentenceCount; ++i) {
        sentence[i].Print(Output(), rawOutput);
      }
    }
  }
}

int MAnalyzer::RunFile() {
  if (eojul == nullptr) return 1;
  while (!streams.AtEnd()) {
    if (streams.ReadLine(line, kLineLimit - 1) == 0) break;
    if (!line.IsEmpty()) RunLine();
  }
  streams.Close();
  return 1;
}

int MAnalyzer::RunFile(const char* inputPath) {
  streams.OpenInput(inputPath);
  return RunFile();
}

int MAnalyzer::RunFile(const char* inputPath, const char* outputPath) {
  streams.OpenInput(inputPath);
  streams.OpenOutput(outputPath);
  return RunFile();
}

void MAnalyzer::Tagging(int mode) {
  // Messages of the tagger (a wrong mode, a faulty rule) go to standard
  // error; the knowledge is bound anew in case SetKnowledge changed it.
  tagger.Bind(Knowledge(), nullptr);
  tagger.statTagger.scoreBreaksTies = options[kScoreTieOption] > 0;
  tagger.cascadeForUnknownWords = options[kCascadeForUnknownOption] > 0;
  SetAsideUnused();
  tagger.Tagging(sentence, mode);
  sentenceCount = sentence.size();
}

}  // namespace Quorel
