// StopWordContainer: the set of stop words that a host tests words against.
// Loaded from a CP949 text file, a word a line; independent of any
// knowledge object. A trie holds the words; its values stay 0, since only
// presence counts. Read-only after Load, so readers may share it.
#ifndef QRLSL_LEXICAL_STOP_WORDS_H_
#define QRLSL_LEXICAL_STOP_WORDS_H_

#include "qrlsl/qr_stopword.h"
#include "trie/qr_datrie.h"

namespace Quorel {

class StopWordContainer : public QR_StopWordContainer {
 public:
  StopWordContainer() = default;
  ~StopWordContainer() override = default;

  // Reads path/fileName under the id "STW". 1 after reading, 0 when the file
  // can't be opened (the old set stays), -1 when the trie can't be created.
  // A new file replaces the words of an earlier Load.
  int Load(const char* path, const char* fileName) override;
  // True when the whole word was listed; false for null and "".
  bool IsStopWord(const char* word) override;

 private:
  QR_DaTrie trie;
};

}  // namespace Quorel

#endif  // QRLSL_LEXICAL_STOP_WORDS_H_
