// qrl: analyse Korean text from the command line.
//
// Reads UTF-8 text from the named files or standard input, analyses it line
// by line and writes one result per eojul to standard output in UTF-8.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "eojul/eojul.h"
#include "qrlsl/qrlsl.h"
#include "text/charset.h"

namespace {

const char kUsage[] =
    "Usage: qrl [options] [file...]\n"
    "Analyse UTF-8 Korean text (files, or standard input) and print one\n"
    "result per eojul.\n"
    "\n"
    "  -k, --knowledge DIR  knowledge directory (qrl.klg, or the source\n"
    "                       dictionaries); default: knowledge/ when present\n"
    "  -n, --candidates N   candidates to keep per eojul (0: all; default 0)\n"
    "  -f, --format FORM    full | compact | tsv (default full)\n"
    "  -o, --option N=V     set analyzer option N (0-19) to V\n"
    "  -h, --help           show this help\n";

// Owned byte strings of the converter.
std::string Convert(const char* text, const char* from, const char* to) {
  Quorel::WideChar* wide = Quorel::ToWide(text, from);
  char* bytes = Quorel::FromWide(wide, to);
  std::string result = bytes == nullptr ? "" : bytes;
  Quorel::FreeBytes(bytes);
  Quorel::FreeWide(wide);
  return result;
}

bool FileExists(const std::string& path) {
  std::ifstream in(path);
  return in.good();
}

struct Settings {
  std::string knowledgeDir;
  int candidates = 0;
  std::string format = "full";
  std::vector<std::pair<int, int>> options;
  std::vector<std::string> files;
};

int Fail(const std::string& message) {
  std::cerr << "qrl: " << message << "\n";
  return 2;
}

void PrintEojul(Quorel::Eojul& e, const std::string& format) {
  if (format == "tsv") {
    std::string line = e.GetString();
    line += "\t";
    int best = e.GetListSize() > 0 ? 0 : -1;
    for (int m = 0; best >= 0 && m < e.GetCount(best); ++m) {
      if (m > 0) line += "+";
      line += e.GetLexicon(best, m);
      line += "/";
      line += e.GetStrPOS(best, m);
    }
    std::cout << Convert(line.c_str(), "cp949", "utf-8") << "\n";
    return;
  }
  std::ostringstream out;
  e.Print(out, format == "compact");
  std::cout << Convert(out.str().c_str(), "cp949", "utf-8");
}

int Analyse(Quorel::QR_Analyzer& analyzer, std::istream& in,
            const std::string& format) {
  std::string line;
  while (std::getline(in, line)) {
    std::string cp949 = Convert(line.c_str(), "utf-8", "cp949");
    analyzer.RunWithString(cp949.c_str());
    int count = analyzer.GetEojulCountInSentence();
    for (int i = 0; i < count; ++i) {
      auto* e = static_cast<Quorel::Eojul*>(analyzer.GetEojulInSentence(i));
      PrintEojul(*e, format);
    }
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  Settings settings;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    auto value = [&](const char* name) -> const char* {
      if (i + 1 >= argc) return nullptr;
      (void)name;
      return argv[++i];
    };
    if (arg == "-h" || arg == "--help") {
      std::cout << kUsage;
      return 0;
    } else if (arg == "-k" || arg == "--knowledge") {
      const char* v = value("knowledge");
      if (v == nullptr) return Fail("missing directory after " + arg);
      settings.knowledgeDir = v;
    } else if (arg == "-n" || arg == "--candidates") {
      const char* v = value("candidates");
      if (v == nullptr) return Fail("missing number after " + arg);
      settings.candidates = std::atoi(v);
    } else if (arg == "-f" || arg == "--format") {
      const char* v = value("format");
      if (v == nullptr) return Fail("missing form after " + arg);
      settings.format = v;
      if (settings.format != "full" && settings.format != "compact" &&
          settings.format != "tsv") {
        return Fail("unknown format: " + settings.format);
      }
    } else if (arg == "-o" || arg == "--option") {
      const char* v = value("option");
      int option = 0;
      int number = 0;
      if (v == nullptr || std::sscanf(v, "%d=%d", &option, &number) != 2) {
        return Fail("options are given as N=V");
      }
      settings.options.emplace_back(option, number);
    } else if (!arg.empty() && arg[0] == '-' && arg != "-") {
      return Fail("unknown option " + arg + " (see --help)");
    } else {
      settings.files.push_back(arg);
    }
  }
  if (settings.knowledgeDir.empty() && FileExists("knowledge/qrl.klg")) {
    settings.knowledgeDir = "knowledge";
  }

  std::unique_ptr<Quorel::QR_Knowledge> knowledge(Quorel::CreateKnowledge(false));
  if (!settings.knowledgeDir.empty()) {
    bool compiled = FileExists(settings.knowledgeDir + "/qrl.klg");
    if (knowledge->LoadKnowledge(settings.knowledgeDir.c_str(), compiled, true) < 1) {
      return Fail("can't load the knowledge in " + settings.knowledgeDir);
    }
  }
  std::unique_ptr<Quorel::QR_Analyzer> analyzer(Quorel::CreateAnalyzer(knowledge.get()));
  analyzer->SetExOption(1);
  analyzer->SetOption(0, settings.candidates);
  for (const auto& option : settings.options) {
    analyzer->SetOption(option.first, option.second);
  }

  if (settings.files.empty()) return Analyse(*analyzer, std::cin, settings.format);
  for (const std::string& file : settings.files) {
    if (file == "-") {
      Analyse(*analyzer, std::cin, settings.format);
      continue;
    }
    std::ifstream in(file);
    if (!in) return Fail("can't open " + file);
    Analyse(*analyzer, in, settings.format);
  }
  return 0;
}
