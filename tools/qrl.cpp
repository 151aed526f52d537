// qrl: the command-line face of the analyzer.
//
// Without a sub-command it analyses UTF-8 text from the named files or
// standard input and writes one result per eojul to standard output (the
// tagger's choice, unless candidates are asked for); the
// sub-commands compile knowledge, scramble synonym files and look words up
// in stop-word and synonym lists. Errors go to standard error with a
// non-zero exit status (1 for unusable files, 2 for bad usage).
#include <cstdlib>
#include <iostream>
#include <string>

#include "tools/qrl/analysis.h"
#include "tools/qrl/commands.h"

namespace {

using Quorel::cli::AnalysisSettings;
using Quorel::cli::Arguments;
using Quorel::cli::Fail;

const char kUsage[] =
    "Usage: qrl [options] [FILE...]     analyse text, one result per eojul\n"
    "       qrl compile DIR [OUT]       source dictionaries of DIR into\n"
    "                                   OUT/qrl.klg (OUT defaults to DIR)\n"
    "       qrl scramble FILE           scrambled form of a synonym file,\n"
    "                                   written beside it as *.bin\n"
    "       qrl stopword FILE WORD...   WORD<TAB>1 or 0 per word\n"
    "       qrl synonym FILE WORD...    WORD<TAB>member... per group\n"
    "                                   (FILE *.bin: scrambled)\n"
    "\n"
    "Text is read from the FILEs, or standard input when there are none or\n"
    "FILE is \"-\", in UTF-8; results are written in UTF-8. User files may be\n"
    "UTF-8 or CP949.\n"
    "\n"
    "Options of the analysis:\n"
    "  -k, --knowledge DIR     knowledge directory (its qrl.klg, else its\n"
    "                          source dictionaries); default: knowledge/ here\n"
    "                          or beside the executable, else empty knowledge\n"
    "  -f, --format FORM       text | tsv | json | index | full | compact\n"
    "                          (default text)\n"
    "  -i, --index-words       same as --format index: per eojul the\n"
    "                          morphemes that are index words\n"
    "  -t, --tagging MODE      the tagger chooses one analysis per eojul:\n"
    "                          0 (rules, the default) or 1 (statistics)\n"
    "  -n, --candidates N      no tagger: the N candidates of the highest\n"
    "                          scores per eojul, highest first (0: all, in\n"
    "                          the order they were found); with -t, the\n"
    "                          candidates the tagger chooses among\n"
    "      --encoding ENC      of the input: auto (the default: UTF-8, or\n"
    "                          CP949 when a file's first line beyond ASCII\n"
    "                          is CP949), utf-8 or cp949\n"
    "  -o, --option N=V        analyzer option N (0-22) set to V; repeatable;\n"
    "                          on here, off in the library: 20, an unknown\n"
    "                          word gives up the josa at its end; 21, mode 1\n"
    "                          breaks ties of one tag list by score; 22,\n"
    "                          mode 1 leaves words its statistics don't\n"
    "                          know to the rules of mode 0\n"
    "  -u, --user-nouns FILE   add the user nouns of FILE; repeatable\n"
    "  -p, --pre-analysis FILE add the pre-analysed eojuls of FILE; repeatable\n"
    "      --raw               ignore pre-analysis entries\n"
    "      --strict            invalid UTF-8 is an error (by default it is\n"
    "                          read as U+FFFD, with a warning)\n"
    "      --no-progress       no progress bar (otherwise shown for files of\n"
    "                          1 MB or more when stderr is a terminal)\n"
    "  -h, --help              show this help\n"
    "      --version           show the version\n"
    "\n"
    "Forms: text is the surface, then its analysis as lexicon/TAG joined by\n"
    "\"+\" (a column per candidate with -n), and \"EOS\" after each input\n"
    "line; tsv is the same without EOS; json is one object per eojul with\n"
    "its line number, offsets, scores, tags, POS masks and index flags; index\n"
    "is the surface, then its index words; full and compact are the\n"
    "analyzer's own print forms. A directory among the FILEs stands for the\n"
    "files under it.\n";

// Strict decimal integer; false on anything else.
bool ParseInt(const std::string& text, int& value) {
  if (text.empty()) return false;
  char* end = nullptr;
  long parsed = std::strtol(text.c_str(), &end, 10);
  if (*end != 0 || parsed < -2147483647L - 1 || parsed > 2147483647L) {
    return false;
  }
  value = static_cast<int>(parsed);
  return true;
}

// Options 0-19, and those beyond the catalogue (20: an unknown word gives
// up its josa; 21: mode 1 breaks ties by score; 22: mode 1 leaves unknown
// words to the rules of mode 0), which this command turns on unless told
// otherwise.
constexpr int kLastOption = 22;

bool ParseOption(const std::string& text, std::pair<int, int>& option) {
  size_t equals = text.find('=');
  return equals != std::string::npos &&
         ParseInt(text.substr(0, equals), option.first) &&
         ParseInt(text.substr(equals + 1), option.second) &&
         option.first >= 0 && option.first <= kLastOption;
}

// Reads the options of the analysis into `settings`; the exit status of a
// failure, or -1 to go on.
int ParseAnalysis(int argc, char** argv, AnalysisSettings& settings) {
  bool onlyFiles = false;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (onlyFiles || arg == "-" || arg.empty() || arg[0] != '-') {
      settings.inputs.push_back(arg);
      continue;
    }
    std::string value;
    bool inlineValue = false;
    size_t equals = arg.find('=');
    if (arg.compare(0, 2, "--") == 0 && equals != std::string::npos) {
      value = arg.substr(equals + 1);
      arg.erase(equals);
      inlineValue = true;
    } else if (arg.size() > 2 && arg[1] != '-' &&
               std::string("kfntoup").find(arg[1]) != std::string::npos) {
      // A short option with its value attached: -n1, -ftsv.
      value = arg.substr(2);
      arg.erase(2);
      inlineValue = true;
    }
    // The value of an option that takes one: inline, or the next word.
    auto next = [&](std::string& out) {
      if (inlineValue) {
        out = value;
        return true;
      }
      if (i + 1 >= argc) return false;
      out = argv[++i];
      return true;
    };
    std::string v;
    if (arg == "--") {
      onlyFiles = true;
    } else if (arg == "-h" || arg == "--help") {
      std::cout << kUsage;
      return 0;
    } else if (arg == "--version") {
      std::cout << "qrl " << QRLSL_VERSION << "\n";
      return 0;
    } else if (arg == "--encoding") {
      if (!next(v) || (v != "auto" && v != "utf-8" && v != "cp949")) {
        return Fail(arg + " takes auto, utf-8 or cp949", 2);
      }
      settings.encoding = v;
    } else if (arg == "-i" || arg == "--index-words") {
      settings.format = Quorel::cli::Format::kIndex;
    } else if (arg == "--raw") {
      settings.raw = true;
    } else if (arg == "--no-progress") {
      settings.progress = false;
    } else if (arg == "--strict") {
      settings.strict = true;
    } else if (arg == "-k" || arg == "--knowledge") {
      if (!next(settings.knowledgeDirectory)) return Fail(arg + " needs a directory", 2);
    } else if (arg == "-f" || arg == "--format") {
      if (!next(v) || !Quorel::cli::ParseFormat(v, settings.format)) {
        return Fail(arg + " takes text, tsv, json, index, full or compact", 2);
      }
    } else if (arg == "-n" || arg == "--candidates") {
      if (!next(v) || !ParseInt(v, settings.candidates) ||
          settings.candidates < 0 || settings.candidates > 127) {
        return Fail(arg + " takes a number from 0 to 127", 2);
      }
      settings.candidatesGiven = true;
    } else if (arg == "-t" || arg == "--tagging") {
      if (!next(v) || (v != "0" && v != "1")) {
        return Fail(arg + " takes the mode 0 or 1", 2);
      }
      settings.taggingMode = v[0] - '0';
    } else if (arg == "-o" || arg == "--option") {
      std::pair<int, int> option;
      if (!next(v) || !ParseOption(v, option)) {
        return Fail(arg + " takes N=V with N from 0 to 22", 2);
      }
      settings.options.push_back(option);
    } else if (arg == "-u" || arg == "--user-nouns") {
      if (!next(v)) return Fail(arg + " needs a file", 2);
      settings.userNounFiles.push_back(v);
    } else if (arg == "-p" || arg == "--pre-analysis") {
      if (!next(v)) return Fail(arg + " needs a file", 2);
      settings.preAnalysisFiles.push_back(v);
    } else {
      return Fail("unknown option " + arg + " (see qrl --help)", 2);
    }
  }
  return -1;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  if (argc >= 2) {
    const std::string command = argv[1];
    const Arguments rest(argv + 2, argv + argc);
    if (command == "compile") return Quorel::cli::RunCompile(rest);
    if (command == "scramble") return Quorel::cli::RunScramble(rest);
    if (command == "stopword") return Quorel::cli::RunStopWord(rest);
    if (command == "synonym") return Quorel::cli::RunSynonym(rest);
  }
  AnalysisSettings settings;
  int status = ParseAnalysis(argc, argv, settings);
  if (status >= 0) return status;
  return Quorel::cli::RunAnalysis(settings);
}
