// QR_SynonymContainer and QR_Synonym: groups of synonyms loaded from a text
// or scrambled file, and the answer to one search. A QR_Synonym reads the
// container it was last searched with; it must not outlive it.
#ifndef QRLSL_QR_SYNONYM_H_
#define QRLSL_QR_SYNONYM_H_

namespace Quorel {

class QR_Synonym {
 public:
  QR_Synonym() {}
  virtual ~QR_Synonym() {}

  virtual bool IsFound() = 0;
  virtual void Reset() = 0;
  // Number of groups the word belongs to; 0 when nothing was found.
  virtual int GetCount() = 0;
  // Words in group `index`; 0 when out of range.
  virtual int GetGroupSize(int index) = 0;
  // First word of group `index`.
  virtual const char* GetGroupHead(int index) = 0;
  // Word `position` of group `index`; null when out of range.
  virtual const char* GetWord(int index, int position) = 0;
  // 1 when that word was written with "<" (or ">") in front, else 0.
  virtual int HasLessMark(int index, int position) = 0;
  virtual int HasGreaterMark(int index, int position) = 0;
};

class QR_SynonymContainer {
 public:
  QR_SynonymContainer() {}
  virtual ~QR_SynonymContainer() {}

  // Reads path/fileName, scrambled or as text. 1 on success, 0 when the file
  // can't be opened, -1 on equal delimiters or when the set can't be created.
  virtual int Load(const char* path, const char* fileName, bool scrambled) = 0;
  virtual void SetSynonymDelimiter(const char* delimiters) = 0;
  virtual void SetWordDelimiter(const char* delimiters) = 0;
  // Fills `result` with the groups of `word`; 1 when found.
  virtual int Search(const char* word, QR_Synonym* result) = 0;
  // Writes the scrambled form of a text file beside it, extension "bin".
  virtual int ScrambleFile(const char* path) = 0;
};

QR_Synonym* CreateSynonym();
QR_SynonymContainer* CreateSynonymContainer();

}  // namespace Quorel

#endif  // QRLSL_QR_SYNONYM_H_
