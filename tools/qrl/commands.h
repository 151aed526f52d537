// The qrl sub-commands beside analysis. Each takes the words after its name,
// writes results (UTF-8) to standard output and errors to standard error,
// and returns the exit status: 0 done, 1 a file couldn't be used, 2 usage.
#ifndef QRLSL_TOOLS_QRL_COMMANDS_H_
#define QRLSL_TOOLS_QRL_COMMANDS_H_

#include <string>
#include <vector>

namespace Quorel {
namespace cli {

using Arguments = std::vector<std::string>;

// compile DIR [OUT]: the source dictionaries of DIR (and its
// preanal.sys.dic) into OUT/qrl.klg; OUT defaults to DIR.
int RunCompile(const Arguments& args);
// scramble FILE: writes FILE's scrambled form beside it (extension "bin").
int RunScramble(const Arguments& args);
// stopword FILE WORD...: a line "WORD<TAB>1" or "WORD<TAB>0" per word.
int RunStopWord(const Arguments& args);
// synonym FILE WORD...: per word, a line "WORD<TAB>member<TAB>..." for each
// group it belongs to ("<" or ">" before members marked so), or the word
// alone when it has none. A FILE ending in ".bin" is read as scrambled.
int RunSynonym(const Arguments& args);

// Writes "qrl: " + message to standard error and returns `status`.
int Fail(const std::string& message, int status = 1);

}  // namespace cli
}  // namespace Quorel

#endif  // QRLSL_TOOLS_QRL_COMMANDS_H_
