// One analyzer over one knowledge object; input read line by line, each line
// read at the edge (LineEdge: CP949 for the library, the user's characters
// kept beside it), analysed (and tagged), and its eojuls written out.
#include "tools/qrl/analysis.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string_view>

#include "analyzer/m_analyzer.h"
#include "qrlsl/qrlsl.h"
#include "tools/qrl/commands.h"
#include "tools/qrl/knowledge_setup.h"
#include "tools/qrl/progress.h"
#include "tools/qrl/line_edge.h"
#include "tools/qrl/recode.h"

namespace Quorel {
namespace cli {

namespace {

// Longest piece of a line handed to the analyzer at once, in UTF-8 bytes;
// its CP949 form is no longer, and stays inside the analyzer's line buffer.
constexpr size_t kPieceLimit = 60000;
// Files from this size on get a progress bar.
constexpr uint64_t kProgressFrom = 1 << 20;

class Session {
 public:
  explicit Session(const AnalysisSettings& settings)
      : settings(settings), writer(std::cout, settings.format) {}

  // Loads the knowledge and the user files, and sets up the analyzer.
  bool Start();
  // Analyses every line of `in`, named `name` in messages; false when
  // --strict met invalid UTF-8 or the output can't be written (the run
  // stops there).
  bool AnalyseStream(std::istream& in, const std::string& name,
                     Progress& progress);

 private:
  bool AnalyseLine(std::string_view line);
  bool AnalysePiece(std::string_view piece);
  // Warns of the invalid UTF-8 of the piece just read, or with --strict
  // fails on it; false when the run must stop.
  bool CheckUtf8();

  const AnalysisSettings& settings;
  std::unique_ptr<QR_Knowledge> knowledge;
  std::unique_ptr<QR_Analyzer> analyzer;
  EojulWriter writer;
  LineEdge edge;
  LinePlace place;
  Recoder recoder;
  std::string inputName;
  long lineNumber = 0;
  int narrowing = 0;
  int tagging = -1;  // the tagging mode, -1 none
};

bool Session::Start() {
  knowledge.reset(CreateKnowledge(false));
  std::string directory = settings.knowledgeDirectory;
  if (directory.empty()) directory = FindKnowledgeDirectory();
  std::string error;
  if (directory.empty()) {
    Fail("no knowledge found (knowledge/qrl.klg here or beside the "
         "executable): give -k DIR, or run scripts/setup.sh, which builds "
         "build/knowledge");
    return false;
  }
  if (!LoadKnowledgeDirectory(*knowledge, directory, error)) {
    Fail(error);
    return false;
  }
  for (const std::string& file : settings.userNounFiles) {
    if (!LoadUserFile(*knowledge, file, UserFile::kUserNouns, error)) {
      Fail(error);
      return false;
    }
  }
  for (const std::string& file : settings.preAnalysisFiles) {
    if (!LoadUserFile(*knowledge, file, UserFile::kPreAnalysis, error)) {
      Fail(error);
      return false;
    }
  }
  tagging = settings.taggingMode >= 0 ? settings.taggingMode
                                       : settings.candidatesGiven ? -1 : 0;
  if (tagging == 1 && !LoadTaggerKnowledge(*knowledge, directory)) {
    std::cerr << "qrl: the knowledge in " << directory
              << " has no statistics (sinfo/tag_list.txt): tagging mode 1 "
                 "decides by its rules and the tail of mode 0\n";
  }

  analyzer.reset(CreateAnalyzer(knowledge.get()));
  analyzer->SetExOption(ExOption::kKeepSentence);
  if (settings.raw) analyzer->SetRawOutput();
  analyzer->SetOption(0, settings.candidates);
  // Beyond the library's defaults, what a user of the command expects: an
  // unknown word gives up its josa, and tagging mode 1 breaks ties of one
  // tag list by score and leaves words its statistics don't know to the
  // rules of mode 0 (the options below may turn them off).
  analyzer->SetOption(MAnalyzer::kUnknownEndingOption, 1);
  analyzer->SetOption(MAnalyzer::kScoreTieOption, 1);
  analyzer->SetOption(MAnalyzer::kCascadeForUnknownOption, 1);
  for (const auto& option : settings.options) {
    analyzer->SetOption(option.first, option.second);
  }
  // The sentence holds copies that show every candidate; the number the
  // analyzer narrows to (options 14 and 15 may have raised it) is applied
  // again on each of them.
  narrowing = static_cast<MAnalyzer&>(*analyzer).Option(0);
  place.edge = &edge;
  place.characterOffsets = static_cast<MAnalyzer&>(*analyzer).Option(18) > 0;
  return true;
}

bool Session::AnalyseStream(std::istream& in, const std::string& name,
                            Progress& progress) {
  inputName = name;
  lineNumber = 0;
  std::string line;
  bool ok = true;
  // The input's encoding, decided at its first line beyond ASCII.
  std::string encoding = settings.encoding;
  while (ok && std::getline(in, line)) {
    ++lineNumber;
    progress.Advance(line.size() + 1);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (encoding == "auto" && IsCp949Text(line) && !IsUtf8Text(line)) {
      std::cerr << "qrl: " << name << " is read as CP949 (--encoding utf-8 "
                   "reads it as UTF-8)\n";
      encoding = "cp949";
    } else if (encoding == "auto" && IsUtf8Text(line)) {
      encoding = "utf-8";
    }
    if (encoding == "cp949") line = recoder.ToUtf8(line.c_str());
    ok = AnalyseLine(line);
    writer.EndLine();
    if (!std::cout.good()) {
      Fail("can't write the output");
      return false;
    }
  }
  std::cout.flush();
  if (!std::cout.good()) {
    Fail("can't write the output");
    return false;
  }
  return ok;
}

// A line too long for the analyzer goes in pieces, cut at a blank where
// there is one, else at a character boundary. The library's offsets restart
// per piece; the code-point and byte offsets count from the line's start.
bool Session::AnalyseLine(std::string_view line) {
  place.codePointBase = 0;
  place.byteBase = 0;
  place.line = lineNumber;
  while (line.size() > kPieceLimit) {
    size_t cut = line.find_last_of(" \t", kPieceLimit);
    if (cut == std::string_view::npos || cut == 0) {
      cut = kPieceLimit;
      while (cut > 0 && (static_cast<unsigned char>(line[cut]) & 0xC0) == 0x80) {
        --cut;
      }
    }
    if (!AnalysePiece(line.substr(0, cut))) return false;
    place.codePointBase += edge.CodePoints();
    place.byteBase += cut;
    line.remove_prefix(cut);
  }
  return AnalysePiece(line);
}

bool Session::CheckUtf8() {
  const std::vector<size_t>& invalid = edge.InvalidBytes();
  if (invalid.empty()) return true;
  std::cerr << "qrl: " << inputName << ":" << lineNumber << ": byte "
            << place.byteBase + invalid[0] + 1 << ": invalid UTF-8";
  if (settings.strict) {
    std::cerr << " (--strict)\n";
    return false;
  }
  std::cerr << ", " << invalid.size() << (invalid.size() == 1 ? " byte" : " bytes")
            << " read as U+FFFD\n";
  return true;
}

bool Session::AnalysePiece(std::string_view text) {
  edge.Read(text);
  if (!CheckUtf8()) return false;
  const std::string& cp949 = edge.Cp949();
  // An empty text leaves the previous sentence in place: nothing to write.
  if (cp949.empty()) return true;
  analyzer->RunWithString(cp949.c_str());
  if (tagging >= 0) analyzer->Tagging(tagging);
  int count = analyzer->GetEojulCountInSentence();
  for (int i = 0; i < count; ++i) {
    auto& e = static_cast<Eojul&>(*analyzer->GetEojulInSentence(i));
    if (narrowing > 0) e.SelectTop(static_cast<unsigned char>(narrowing));
    writer.Write(e, analyzer->GetEojulOffsetInSentence(i), place);
  }
  return true;
}

uint64_t FileSize(const std::string& path) {
  struct stat info;
  if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return 0;
  return static_cast<uint64_t>(info.st_size);
}

// The inputs, each directory replaced by the files under it, in the order
// of their paths.
std::vector<std::string> ExpandInputs(const std::vector<std::string>& named) {
  namespace fs = std::filesystem;
  std::vector<std::string> inputs;
  for (const std::string& input : named) {
    std::error_code error;
    if (input == "-" || !fs::is_directory(input, error)) {
      inputs.push_back(input);
      continue;
    }
    std::vector<std::string> files;
    for (fs::recursive_directory_iterator it(input, error), end;
         !error && it != end; it.increment(error)) {
      std::error_code ignored;
      if (it->is_regular_file(ignored)) files.push_back(it->path().string());
    }
    std::sort(files.begin(), files.end());
    inputs.insert(inputs.end(), files.begin(), files.end());
  }
  return inputs;
}

}  // namespace

int RunAnalysis(const AnalysisSettings& settings) {
  Session session(settings);
  if (!session.Start()) return 1;
  int status = 0;
  std::vector<std::string> inputs = ExpandInputs(settings.inputs);
  if (settings.inputs.empty()) inputs.push_back("-");
  for (const std::string& input : inputs) {
    if (input == "-") {
      Progress none("", 0, false);
      if (!session.AnalyseStream(std::cin, "-", none)) return 1;
      continue;
    }
    std::ifstream in(input, std::ios::binary);
    if (!in) {
      status = Fail("can't open " + input);
      continue;
    }
    uint64_t size = FileSize(input);
    Progress progress(input, size, settings.progress && size >= kProgressFrom);
    if (!session.AnalyseStream(in, input, progress)) return 1;
  }
  return status;
}

}  // namespace cli
}  // namespace Quorel
