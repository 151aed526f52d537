// QR_Eojul: one analysed token as the host sees it.
//
// Candidates and morphemes are addressed by 0-based numbers. Readers stay
// within GetListSize() and GetCount(); out-of-range arguments give null, -1
// or false as documented per operation. Strings are CP949, NUL-terminated.
// One thread at a time may use an object.
#ifndef QRLSL_QR_EOJUL_H_
#define QRLSL_QR_EOJUL_H_

namespace Quorel {

class QR_Eojul {
 public:
  QR_Eojul() {}
  virtual ~QR_Eojul() {}

  // Clears all content; with releaseMemory, grown heap storage is freed too.
  virtual void Initialize(bool releaseMemory) = 0;
  // Classifies `text` as one token and stores it as the surface.
  virtual void SetString(const char* text) = 0;
  // The surface text; never null.
  virtual const char* GetString() = 0;
  // Number of visible candidates.
  virtual int GetListSize() = 0;
  // Number of morphemes of a candidate.
  virtual int GetCount(int candidate) = 0;
  // Lexical form of a morpheme; null when out of range.
  virtual const char* GetLexicon(int candidate, int morpheme) = 0;
  // POS mask of a morpheme; all bits set when out of range.
  virtual unsigned int GetPOS(int candidate, int morpheme) = 0;
  // Tag name of a morpheme; "" when out of range or unnamed.
  virtual const char* GetStrPOS(int candidate, int morpheme) = 0;
  // Whether a morpheme is offered as an index word.
  virtual bool IsIndexWord(int candidate, int morpheme) = 0;
  // Score of a candidate; 0.0 or below means not scored.
  virtual double GetScore(int candidate) = 0;
  // 0-based number of the best stored candidate (last of equal scores).
  virtual int BestCandidate() = 0;
  // Offsets of a morpheme recorded by the offset pass; -1 when out of range.
  virtual int GetStartOffset(int candidate, int morpheme) = 0;
  virtual int GetEndOffset(int candidate, int morpheme) = 0;
};

// Allocates an Eojul with the inline capacity of 256 bytes.
QR_Eojul* CreateEojul();

}  // namespace Quorel

#endif  // QRLSL_QR_EOJUL_H_
