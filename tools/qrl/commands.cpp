// compile, scramble, stopword and synonym: thin calls into the library with
// the conversions of the words and files at the edge.
#include "tools/qrl/commands.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>

#include "qrlsl/qrlsl.h"
#include "tools/qrl/recode.h"

namespace Quorel {
namespace cli {

namespace fs = std::filesystem;

int Fail(const std::string& message, int status) {
  std::cerr << "qrl: " << message << "\n";
  return status;
}

int RunCompile(const Arguments& args) {
  if (args.empty() || args.size() > 2) {
    return Fail("usage: qrl compile DIR [OUT]", 2);
  }
  const std::string& source = args[0];
  const std::string output = args.size() == 2 ? args[1] : source;
  std::error_code error;
  if (!fs::is_directory(source, error)) {
    return Fail("no knowledge directory " + source);
  }
  fs::create_directories(output, error);
  std::unique_ptr<QR_Knowledge> knowledge(CreateKnowledge(false));
  if (!knowledge->CompileKnowledge(source.c_str(), output.c_str())) {
    return Fail("can't compile " + source + " into " + output);
  }
  std::cerr << "qrl: wrote " << (fs::path(output) / "qrl.klg").string() << "\n";
  return 0;
}

namespace {

// The name ScrambleFile gives the scrambled form of `name`.
std::string ScrambledName(const std::string& name) {
  size_t dot = name.rfind('.');
  return (dot == std::string::npos ? name + "." : name.substr(0, dot + 1)) +
         "bin";
}

}  // namespace

int RunScramble(const Arguments& args) {
  if (args.size() != 1) return Fail("usage: qrl scramble FILE", 2);
  Cp949Copy file(args[0]);
  if (!file.Ok()) return Fail("can't read " + args[0]);
  std::unique_ptr<QR_SynonymContainer> synonyms(CreateSynonymContainer());
  if (synonyms->ScrambleFile(file.Path().c_str()) < 0) {
    return Fail("can't scramble " + args[0]);
  }
  std::string directory, name;
  SplitPath(args[0], directory, name);
  const std::string target = directory + ScrambledName(name);
  const std::string written = file.Directory() + ScrambledName(name);
  std::error_code error;
  if (written != target) {
    fs::copy_file(written, target, fs::copy_options::overwrite_existing, error);
    if (error) return Fail("can't write " + target);
  }
  std::cerr << "qrl: wrote " << target << "\n";
  return 0;
}

int RunStopWord(const Arguments& args) {
  if (args.size() < 2) return Fail("usage: qrl stopword FILE WORD...", 2);
  Cp949Copy file(args[0]);
  std::unique_ptr<QR_StopWordContainer> stopWords(CreateStopWordContainer());
  if (!file.Ok() ||
      stopWords->Load(file.Directory().c_str(), file.Name().c_str()) < 1) {
    return Fail("can't load the stop words of " + args[0]);
  }
  Recoder recoder;
  for (size_t i = 1; i < args.size(); ++i) {
    bool stop = stopWords->IsStopWord(recoder.ToCp949(args[i].c_str()).c_str());
    std::cout << args[i] << (stop ? "\t1\n" : "\t0\n");
  }
  return 0;
}

int RunSynonym(const Arguments& args) {
  if (args.size() < 2) return Fail("usage: qrl synonym FILE WORD...", 2);
  const std::string& path = args[0];
  bool scrambled = path.size() > 4 && path.compare(path.size() - 4, 4, ".bin") == 0;
  Cp949Copy file(path);
  std::unique_ptr<QR_SynonymContainer> synonyms(CreateSynonymContainer());
  if (!file.Ok() || synonyms->Load(file.Directory().c_str(),
                                   file.Name().c_str(), scrambled) < 1) {
    return Fail("can't load the synonyms of " + path);
  }
  std::unique_ptr<QR_Synonym> found(CreateSynonym());
  Recoder recoder;
  for (size_t i = 1; i < args.size(); ++i) {
    const std::string word = recoder.ToCp949(args[i].c_str());
    if (synonyms->Search(word.c_str(), found.get()) < 1 || found->GetCount() < 1) {
      std::cout << args[i] << "\n";
      continue;
    }
    for (int group = 0; group < found->GetCount(); ++group) {
      std::cout << args[i];
      for (int at = 0; at < found->GetGroupSize(group); ++at) {
        const char* member = found->GetWord(group, at);
        if (member == nullptr) continue;
        std::cout << "\t" << (found->HasLessMark(group, at) ? "<" : "")
                  << (found->HasGreaterMark(group, at) ? ">" : "")
                  << recoder.ToUtf8(member);
      }
      std::cout << "\n";
    }
  }
  return 0;
}

}  // namespace cli
}  // namespace Quorel
