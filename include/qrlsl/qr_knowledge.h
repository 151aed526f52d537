// QR_Knowledge: everything the analyzer and tagger know, loaded from a
// knowledge directory. Filled once on one thread, then read-only: any number
// of analyzers may share it. It must outlive every analyzer bound to it.
// Loading messages go to standard error; results report success.
#ifndef QRLSL_QR_KNOWLEDGE_H_
#define QRLSL_QR_KNOWLEDGE_H_

namespace Quorel {

class QR_Knowledge {
 public:
  QR_Knowledge() {}
  virtual ~QR_Knowledge() {}

  // Loads the directory `path`, from its compiled file "qrl.klg" when
  // fromCompiledFile, else from the source dictionaries. The last flag goes to
  // the compiled-file loader (pre-analysis section). 0 or below on failure.
  virtual int LoadKnowledge(const char* path, bool fromCompiledFile,
                            bool withPreAnalysis) = 0;
  // Adds user nouns from path/fileName.
  virtual int LoadUserNoun(const char* path, const char* fileName,
                           bool flag) = 0;
  // Adds pre-analysed eojuls from path/fileName.
  virtual int LoadPreAnalysis(const char* path, const char* fileName,
                              bool flag) = 0;
  // Loads the sources of `path` and "preanal.sys.dic", writes the compiled
  // file to `outputPath`. True on success.
  virtual bool CompileKnowledge(const char* path, const char* outputPath) = 0;
  // Tagger rule files under path/sinfo.
  virtual int LoadEojulRules(const char* path) = 0;
  virtual int LoadGroupRules(const char* path) = 0;
  // Tagger frequency files under path/sinfo.
  virtual int LoadTagLists(const char* path) = 0;
  // The five weights of the statistical tagger.
  virtual void SetTaggerWeights(double w1, double w2, double w3, double w4,
                                double w5) = 0;
};

// Allocates an empty knowledge object; with autoLoad it loads
// "./knowledge" from its compiled file at once.
QR_Knowledge* CreateKnowledge(bool autoLoad);

}  // namespace Quorel

#endif  // QRLSL_QR_KNOWLEDGE_H_
