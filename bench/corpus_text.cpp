// CoNLL-U reading: comment lines and the ids of empty nodes are passed
// over; a multi-word token line gives its own FORM and hides its words.
#include "bench/corpus_text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace qrlbench {

namespace {

// The tab-separated column `index` of a CoNLL-U word line.
std::string Column(const std::string& line, int index) {
  size_t start = 0;
  for (int i = 0; i < index; ++i) {
    start = line.find('\t', start);
    if (start == std::string::npos) return "";
    ++start;
  }
  return line.substr(start, line.find('\t', start) - start);
}

void ReadFile(const std::string& path, CorpusText& text) {
  std::ifstream in(path);
  std::string line, sentence;
  int hiddenUpTo = 0;  // last word id covered by a multi-word token
  auto finish = [&]() {
    while (!sentence.empty() && sentence.back() == ' ') sentence.pop_back();
    if (!sentence.empty()) {
      text.bytes += sentence.size() + 1;
      text.lines.push_back(sentence);
    }
    sentence.clear();
    hiddenUpTo = 0;
  };
  while (std::getline(in, line)) {
    if (line.empty()) {
      finish();
      continue;
    }
    if (line[0] == '#') continue;
    const std::string id = Column(line, 0);
    if (id.find('.') != std::string::npos) continue;
    size_t dash = id.find('-');
    if (dash == std::string::npos && std::stoi(id) <= hiddenUpTo) continue;
    if (dash != std::string::npos) hiddenUpTo = std::stoi(id.substr(dash + 1));
    sentence += Column(line, 1);
    if (Column(line, 9).find("SpaceAfter=No") == std::string::npos) {
      sentence += ' ';
    }
  }
  finish();
}

}  // namespace

bool ReadCorpus(const std::string& directory, CorpusText& text) {
  namespace fs = std::filesystem;
  std::error_code error;
  if (!fs::is_directory(directory, error)) return false;
  for (const auto& entry : fs::recursive_directory_iterator(directory, error)) {
    if (entry.is_regular_file() && entry.path().extension() == ".conllu") {
      text.files.push_back(entry.path().string());
    }
  }
  std::sort(text.files.begin(), text.files.end());
  for (const std::string& file : text.files) ReadFile(file, text);
  text.sentences = text.lines.size();
  return !text.lines.empty();
}

void RepeatTo(CorpusText& text, uint64_t minBytes) {
  const size_t original = text.lines.size();
  const uint64_t originalBytes = text.bytes;
  if (original == 0) return;
  while (text.bytes < minBytes) {
    for (size_t i = 0; i < original; ++i) text.lines.push_back(text.lines[i]);
    text.bytes += originalBytes;
  }
}

}  // namespace qrlbench
