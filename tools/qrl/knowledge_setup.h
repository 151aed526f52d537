// Finding and loading the knowledge the qrl tool analyses with: the
// knowledge directory (compiled file or source dictionaries), the user's
// user-noun and pre-analysis files, and the tagger's files.
#ifndef QRLSL_TOOLS_QRL_KNOWLEDGE_SETUP_H_
#define QRLSL_TOOLS_QRL_KNOWLEDGE_SETUP_H_

#include <string>

#include "qrlsl/qr_knowledge.h"

namespace Quorel {
namespace cli {

// The directory to load: "knowledge" under the current directory when it
// holds qrl.klg, else the one beside the executable (its directory's
// "knowledge" or "../knowledge"). Empty when there is none.
std::string FindKnowledgeDirectory();

// Loads `directory`: its qrl.klg when present, else its source
// dictionaries. False, with `error` naming the directory and the reason,
// when it can't be used: it is no directory, it holds its dictionaries in
// UTF-8 (the sources of a knowledge base, not one), the load fails, or
// nothing loaded holds a word or an ending.
bool LoadKnowledgeDirectory(QR_Knowledge& knowledge,
                            const std::string& directory, std::string& error);

enum class UserFile { kUserNouns, kPreAnalysis };

// Adds a user-noun or pre-analysis file, written in UTF-8 or CP949. The
// lines the library rejects are reported on standard error in UTF-8, each
// with the file and its line number, then their count. False, with `error`
// set, when the file can't be read or loaded.
bool LoadUserFile(QR_Knowledge& knowledge, const std::string& path,
                  UserFile kind, std::string& error);

// The tagger's rule and frequency files under directory/sinfo, and the
// weights of its statistical pass. Missing files leave those parts empty;
// false when there is no frequency model (sinfo/tag_list.txt).
bool LoadTaggerKnowledge(QR_Knowledge& knowledge, const std::string& directory);

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_KNOWLEDGE_SETUP_H_
