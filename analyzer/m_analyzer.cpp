// Construction, ownership and re-initialisation of MAnalyzer, and the
// sentence readers.
#include "analyzer/m_analyzer.h"

#include "knowledge/dictionary.h"

namespace Quorel {

namespace {
constexpr int32_t kStringReserve = 29;
}  // namespace

MAnalyzer::MAnalyzer(const char* knowledgePath)
    : workEojul(256), splitEojul(256), remainderEojul(256) {
  Dictionary* dictionary = new Dictionary(false);
  dictionary->LoadKnowledge(knowledgePath, true, true);
  knowledge = dictionary;
  ownedKnowledge = dictionary;
  eojul = new Eojul(256);
  ownership = 2;
  Initialise();
}

MAnalyzer::MAnalyzer(QR_Knowledge* knowledgeObject)
    : knowledge(knowledgeObject),
      workEojul(256),
      splitEojul(256),
      remainderEojul(256) {
  eojul = new Eojul(256);
  ownership = 1;
  Initialise();
}

MAnalyzer::MAnalyzer(QR_Knowledge* knowledgeObject, QR_Eojul* eojulObject)
    : knowledge(knowledgeObject),
      workEojul(256),
      splitEojul(256),
      remainderEojul(256) {
  ownership = 0;
  compoundAnalyzer.Bind(Knowledge());
  // Without an eojul the caller must call SetEojul before anything else.
  if (eojulObject == nullptr) return;
  eojul = eojulObject;
  Initialise();
}

MAnalyzer::~MAnalyzer() {
  if (ownership != 0) delete eojul;
  delete ownedKnowledge;
}

void MAnalyzer::Initialise() {
  line.Reserve(kLineLimit);
  for (LevelRec& level : levels) {
    level.stem.Reserve(kStringReserve);
    level.ending.Reserve(kStringReserve);
    level.endingBits = 0;
  }
  workText.Reserve(kStringReserve);
  pieceText.Reserve(kStringReserve);
  levelIndex = 0;
  analysisResult = 0;
  foundMask = 0;
  contextCode = 0;
  nounStage = 0;
  nounCut = 0;
  nounBest = -1;
  pendingNounEnding = 0;
  pendingNounSuffix = 0;
  pendingNounOther = 0;
  auxTailCount = 0;
  compoundState = 0;
  verbState = 0;
  analysisLength = 0;
  wholeNounDone = 0;
  scoreFlow = 0;
  compoundTried = false;
  restarted = false;
  exOption = 0;
  rawOutput = false;
  compoundAnalyzer.Bind(Knowledge());
  tokenMemo.Forget();
  if (eojul != nullptr) CurrentEojul()->indexMask = kDefaultIndexMask;
  for (signed char& option : options) option = 0;
  SetOption(0, 0);
}

void MAnalyzer::SetKnowledge(QR_Knowledge* knowledgeObject) {
  knowledge = knowledgeObject;
  compoundAnalyzer.Bind(Knowledge());
  tokenMemo.Forget();
}

int MAnalyzer::SetEojul(QR_Eojul* eojulObject) {
  // The eojul passes to the caller; a Dictionary this analyzer loaded
  // itself stays alive until the analyzer ends (see ownedKnowledge).
  if (ownership != 0) delete eojul;
  ownership = 0;
  eojul = eojulObject;
  Initialise();
  return 1;
}

void MAnalyzer::SetRawOutput() {
  rawOutput = true;
  tokenMemo.Forget();
}

QR_Eojul* MAnalyzer::GetEojulInSentence(unsigned int index) {
  if (index >= sentenceCount) return nullptr;
  return &sentence[index];
}

int MAnalyzer::GetEojulCountInSentence() {
  return static_cast<int>(sentenceCount);
}

int MAnalyzer::GetEojulOffsetInSentence(unsigned int index) {
  // Past the end is a caller's error; answer -1 rather than read outside.
  if (index >= sentenceCount) return -1;
  return sentence[index].GetOffset();
}

QR_Analyzer* CreateAnalyzer(const char* knowledgePath) {
  return new MAnalyzer(knowledgePath);
}

QR_Analyzer* CreateAnalyzer(QR_Knowledge* knowledge) {
  return new MAnalyzer(knowledge);
}

QR_Analyzer* CreateAnalyzer(QR_Knowledge* knowledge, QR_Eojul* eojul) {
  return new MAnalyzer(knowledge, eojul);
}

}  // namespace Quorel
