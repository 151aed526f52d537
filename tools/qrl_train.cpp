// qrl_train: learns the statistical knowledge from CoNLL-U treebanks with
// Sejong or KAIST tags (LEMMA: the morphemes joined by "+", XPOS: their
// tags).
//
//   qrl_train [-k DIR] [-o OUT] [-s SCALE] [-m MIN] FILE.conllu...
//
// Analyses each sentence with the knowledge of DIR (default: knowledge) as
// the tagger will see it, and writes into OUT (default: DIR) the compound
// noun frequencies divInfo_freq_sorted.txt and posInfo_freq_sorted.txt and
// the tagger's sinfo/tag_list.txt, word_list.txt, taglist.klg and
// wordlist.klg, in CP949. Every count is multiplied by SCALE (default 1);
// frequencies under the loaders' floor of 100 are then left out. A word gets
// an entry only when it was seen in MIN sentences or more (default 1). Compile qrl.klg afterwards, since it holds the compound noun
// frequencies. Prints how the eojuls got their tag lists.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "knowledge/corpus_statistics.h"
#include "knowledge/dictionary.h"
#include "qrlsl/qrlsl.h"
#include "tools/corpus_training.h"
#include "tools/treebank.h"

namespace {

int Usage() {
  std::fputs("usage: qrl_train [-k DIR] [-o OUT] [-s SCALE] [-m MIN] FILE.conllu...\n"
             "  -k DIR    knowledge to analyse with (default: knowledge)\n"
             "  -o OUT    directory the files are written to (default: DIR)\n"
             "  -s SCALE  factor of every count written (default: 1)\n"
             "  -m MIN    sentences a word must be seen in to get an entry\n"
             "            (default: 1)\n",
             stderr);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  std::string knowledgeDir = "knowledge";
  std::string outDir;
  std::vector<std::string> files;
  long scale = 1, minSentences = 1;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg == "-k" && i + 1 < argc) {
      knowledgeDir = argv[++i];
    } else if (arg == "-o" && i + 1 < argc) {
      outDir = argv[++i];
    } else if ((arg == "-s" || arg == "-m") && i + 1 < argc) {
      char* end = nullptr;
      const long value = std::strtol(argv[++i], &end, 10);
      if (*end != '\0' || value < 1) return Usage();
      (arg == "-s" ? scale : minSentences) = value;
    } else if (arg[0] == '-') {
      return Usage();
    } else {
      files.push_back(arg);
    }
  }
  if (files.empty()) return Usage();
  if (outDir.empty()) outDir = knowledgeDir;

  Quorel::Dictionary dic(false);
  if (!Quorel::treebank::LoadKnowledgeDirectory(dic, knowledgeDir)) {
    std::fprintf(stderr, "qrl_train: can't load the knowledge in %s\n",
                 knowledgeDir.c_str());
    return 1;
  }
  std::unique_ptr<Quorel::QR_Analyzer> analyzer(Quorel::CreateAnalyzer(&dic));
  analyzer->SetExOption(1);
  Quorel::CorpusStatistics stats;
  stats.SetScale(scale);
  stats.SetMinSentences(static_cast<int>(minSentences));
  Quorel::treebank::TrainingTally tally;
  for (const std::string& file : files) {
    bool ok = Quorel::treebank::ReadConllu(
        file, [&](const std::vector<Quorel::treebank::Token>& tokens) {
          Quorel::treebank::TrainSentence(dic, *analyzer, tokens, stats, tally);
        });
    if (!ok) {
      std::fprintf(stderr, "qrl_train: can't read %s\n", file.c_str());
      return 1;
    }
  }
  std::string error;
  if (!stats.Write(outDir, error)) {
    std::fprintf(stderr, "qrl_train: %s\n", error.c_str());
    return 1;
  }
  std::printf("qrl_train: %ld sentences; eojuls by a matching candidate %ld, "
              "by the corpus tags %ld, by the best candidate %ld, without a "
              "tag list %ld; written to %s\n",
              tally.sentences, tally.aligned, tally.mapped, tally.analysed,
              tally.untagged, outDir.c_str());
  return 0;
}
