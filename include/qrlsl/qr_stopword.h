// QR_StopWordContainer: a set of stop words loaded from a text file.
// Independent of QR_Knowledge; read-only after Load.
#ifndef QRLSL_QR_STOPWORD_H_
#define QRLSL_QR_STOPWORD_H_

namespace Quorel {

class QR_StopWordContainer {
 public:
  QR_StopWordContainer() {}
  virtual ~QR_StopWordContainer() {}

  // Reads path/fileName, a word a line. 1 on success, 0 when the file can't
  // be opened, -1 when the set can't be created.
  virtual int Load(const char* path, const char* fileName) = 0;
  // True when the whole word is in the set; false for null.
  virtual bool IsStopWord(const char* word) = 0;
};

QR_StopWordContainer* CreateStopWordContainer();

}  // namespace Quorel

#endif  // QRLSL_QR_STOPWORD_H_
