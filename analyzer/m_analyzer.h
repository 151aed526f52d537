// MAnalyzer: the concrete QR_Analyzer. It owns all working memory of an
// analysis (scratch eojuls, the analysis stack, the line buffer), carries
// the numbered options and runs the pipeline: one token in RunWithEojul, a
// whole text in RunWithString, a stream line by line in RunFile.
//
// Ownership: built from a path it owns its Dictionary and its Eojul; built
// on a knowledge object it owns only its Eojul; given both it owns neither.
// One caller at a time; several analyzers may share one Dictionary.
#ifndef QRLSL_ANALYZER_M_ANALYZER_H_
#define QRLSL_ANALYZER_M_ANALYZER_H_

#include <cstdint>
#include <vector>

#include "eojul/eojul.h"
#include "eojul/text_stream.h"
#include "qrlsl/qr_analyzer.h"
#include "text/strings.h"

namespace Quorel {

class Dictionary;

// One record of the analysis stack: a candidate stem, the endings split off
// at this level, and their POS bits.
struct Level {
  StringEx stem;
  StringEx ending;
  uint64_t endingBits = 0;
};

// Bits of SetExOption.
namespace ExOption {
constexpr unsigned char kKeepSentence = 1;
constexpr unsigned char kPrint = 2;
constexpr unsigned char kTaggingMode = 4;
}  // namespace ExOption

class MAnalyzer : public QR_Analyzer {
 public:
  static constexpr int kOptionCount = 20;
  static constexpr int kLevelCount = 5;
  static constexpr int kLineLimit = 66560;
  // N_ with NNG, NNP, NNU, NP, NNI, NNC, NFG and NFU.
  static constexpr uint32_t kDefaultIndexMask = 0x40003C2D;

  explicit MAnalyzer(const char* knowledgePath);
  explicit MAnalyzer(QR_Knowledge* knowledge);
  MAnalyzer(QR_Knowledge* knowledge, QR_Eojul* eojul);
  ~MAnalyzer() override;
  MAnalyzer(const MAnalyzer&) = delete;
  MAnalyzer& operator=(const MAnalyzer&) = delete;

  void SetKnowledge(QR_Knowledge* knowledge) override;
  int SetEojul(QR_Eojul* eojul) override;
  void SetOption(int option, int value) override;
  unsigned char SetExOption(int flags) override;
  int RunWithEojul() override;
  int RunWithString(const char* text) override;
  int RunWithString(const char* text, const char* outputPath) override;
  int RunFile() override;
  int RunFile(const char* inputPath) override;
  int RunFile(const char* inputPath, const char* outputPath) override;
  QR_Eojul* GetEojulInSentence(unsigned int index) override;
  int GetEojulCountInSentence() override;
  void SetRawOutput() override;
  int GetEojulOffsetInSentence(unsigned int index) override;
  void Tagging(int mode) override;

  // The option byte of `option` (0 for 9 and 10, which have none).
  signed char Option(int option) const { return options[option]; }
  Eojul* CurrentEojul() { return static_cast<Eojul*>(eojul); }
  Dictionary* Knowledge() { return reinterpret_cast<Dictionary*>(knowledge); }

  // The per-token cascade: leaves the candidates of `e`. Returns the
  // analysis result (0 none).
  int AnalyzeEojul(Eojul& e);

  // Cuts `text` (at most the line limit) into tokens and runs FlushToken on
  // each.
  void ScanText(const char* text, int length);
  // Analysis and output of one token closed by the scanner.
  void FlushToken(const char* token, unsigned type, int tokenStart);

 private:
  void Initialise();
  // Driver, scoring and narrowing of one eojul (the first steps of
  // RunWithEojul).
  void AnalyzeAndSelect(Eojul& e);
  // Narrows the view of `e` to the candidates up to the first with a user
  // noun.
  void KeepToUserNoun(Eojul& e);
  // The scanner over `line`, then tagging when the output mode asks for it.
  void RunLine();
  std::ostream& Output();

  QR_Knowledge* knowledge = nullptr;
  QR_Eojul* eojul = nullptr;
  Eojul workEojul;
  Eojul splitEojul;
  TextStream streams;
  Eojul remainderEojul;
  std::vector<Eojul> sentence;
  StringEx line;
  Level levels[kLevelCount];
  int32_t levelIndex = 0;

  // Status fields of one token.
  int32_t analysisResult = 0;
  uint32_t foundMask = 0;
  int32_t contextCode = 0;

  unsigned char exOption = 0;
  bool rawOutput = false;
  bool compoundTried = false;
  bool restarted = false;
  unsigned char extraTop = 0;
  signed char options[kOptionCount] = {};
  int32_t ownership = 0;
  // The Dictionary loaded by the path constructor. It is deleted with the
  // analyzer even after SetEojul or SetKnowledge, and never a host's object.
  QR_Knowledge* ownedKnowledge = nullptr;
};

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_M_ANALYZER_H_
