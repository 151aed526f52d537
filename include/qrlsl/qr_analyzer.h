// QR_Analyzer: turns text into eojuls with candidate analyses.
//
// Typical use: create on a loaded QR_Knowledge, set options, then either set
// a string in the current QR_Eojul and call RunWithEojul, or call
// RunWithString and read the sentence. One thread at a time per analyzer;
// results stay valid until the next run. Strings are CP949, NUL-terminated.
#ifndef QRLSL_QR_ANALYZER_H_
#define QRLSL_QR_ANALYZER_H_

#include "qrlsl/qr_eojul.h"
#include "qrlsl/qr_knowledge.h"

namespace Quorel {

class QR_Analyzer {
 public:
  QR_Analyzer() {}
  virtual ~QR_Analyzer() {}

  // Binds a knowledge object; ownership does not change.
  virtual void SetKnowledge(QR_Knowledge* knowledge) = 0;
  // Makes `eojul` current (not owned) and re-initialises: options and the
  // index mask must be set again afterwards.
  virtual int SetEojul(QR_Eojul* eojul) = 0;
  // Numbered options; others are ignored. A value of 1 or more switches an
  // option on, and all are off (0) after construction (docs/options.md):
  //   0  candidates kept per eojul, the highest scores (0: all)
  //   1  foreign words are index words, of this length or more
  //   2  numbers are index words, of this length or more
  //   3  predicates (VV, VA, VX) are index words
  //   4  determiners (MM) are index words
  //   5  adverbs (MA) are index words
  //   6  interjections (IC) are index words
  //   7  unregistered nouns (NNR) are index words
  //   8  bound nouns (NNB) are index words
  //   9  adds the bits of `value` to the index mask
  //  10  takes the bits of `value` out of the index mask (not the noun bit)
  //  11  a number and a bound noun are offered joined as well
  //  12  Latin words keep their case
  //  13  "." and "," inside a number belong to it
  //  14  second stage: prefix and suffix pieces joined into NNC
  //  15  second stage: runs of noun pieces joined into NNC
  //  16  RunWithEojul records each morpheme's place in the surface
  //  17  prefix/suffix pieces joined (1 or 2: its two modes)
  //  18  offsets count characters, not bytes
  //  19  candidates kept up to the first with a user noun
  //  20  an unknown word gives up its josa, its stem read as known words
  //  21  tagging mode 1 breaks ties of one tag list by score
  //  22  tagging mode 1 leaves words its statistics don't know to mode 0
  virtual void SetOption(int option, int value) = 0;
  // Output-mode bits: 1 keep the sentence, 2 print, 4 tagging mode.
  // Returns the stored low byte.
  virtual unsigned char SetExOption(int flags) = 0;
  // Analyses the string already set in the current eojul. 0 if there is none.
  virtual int RunWithEojul() = 0;
  // Scans and analyses a whole text; the result is the sentence.
  virtual int RunWithString(const char* text) = 0;
  virtual int RunWithString(const char* text, const char* outputPath) = 0;
  // Analyses the current input stream (the console by default) line by line.
  virtual int RunFile() = 0;
  virtual int RunFile(const char* inputPath) = 0;
  virtual int RunFile(const char* inputPath, const char* outputPath) = 0;
  // Element `index` of the sentence, null past the end. Not to be deleted.
  virtual QR_Eojul* GetEojulInSentence(unsigned int index) = 0;
  virtual int GetEojulCountInSentence() = 0;
  // Ignore pre-analysis entries and print in the compact form.
  virtual void SetRawOutput() = 0;
  // Offset of sentence element `index`. REQUIRES: index below the count.
  virtual int GetEojulOffsetInSentence(unsigned int index) = 0;
  // Runs the tagger over the sentence, mode 0 (rules) or 1 (statistics).
  virtual void Tagging(int mode) = 0;
};

// An analyzer that loads and owns its own knowledge from `knowledgePath`.
QR_Analyzer* CreateAnalyzer(const char* knowledgePath);
// An analyzer on shared knowledge, owning its own eojul.
QR_Analyzer* CreateAnalyzer(QR_Knowledge* knowledge);
// An analyzer that owns neither. With a null eojul, SetEojul must come first.
QR_Analyzer* CreateAnalyzer(QR_Knowledge* knowledge, QR_Eojul* eojul);

}  // namespace Quorel

#endif  // QRLSL_QR_ANALYZER_H_
