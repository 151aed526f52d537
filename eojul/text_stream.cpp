#include "eojul/text_stream.h"

#include <iostream>
#include <vector>

#include "log/logger.h"

namespace Quorel {

bool TextStream::OpenInput(const char* path) {
  if (inputOpen) input.close();
  inputOpen = false;
  input.clear();
  input.open(path == nullptr ? "" : path, std::ios::in);
  if (!input.is_open()) {
    input.clear();
    Logger().Write("Input stream is not opened!");
    return false;
  }
  inputOpen = true;
  return true;
}

bool TextStream::OpenOutput(const char* path) {
  if (outputOpen) output.close();
  outputOpen = false;
  output.clear();
  output.open(path == nullptr ? "" : path, std::ios::out | std::ios::trunc);
  if (!output.is_open()) {
    output.clear();
    Logger().Write("Output stream is not opened!");
    return false;
  }
  outputOpen = true;
  return true;
}

std::istream& TextStream::In() {
  return inputOpen ? static_cast<std::istream&>(input) : std::cin;
}

std::ostream& TextStream::Out() {
  return outputOpen ? static_cast<std::ostream&>(output) : std::cout;
}

int TextStream::ReadLine(StringEx& line, int limit) {
  std::istream& in = In();
  line.Clear();
  if (!in.good()) return 0;
  if (buffer.size() < static_cast<size_t>(limit) + 1) buffer.resize(limit + 1);
  in.getline(buffer.data(), limit + 1);
  std::streamsize read = in.gcount();
  if (read == 0 && in.eof()) return 0;
  // A line that filled the buffer without its end goes on in the next read.
  if (in.fail() && !in.eof()) in.clear();
  int32_t length = static_cast<int32_t>(std::char_traits<char>::length(buffer.data()));
  if (length > 0 && buffer[length - 1] == '\r') --length;
  line.Assign(buffer.data(), length);
  return 1;
}

bool TextStream::AtEnd() {
  std::istream& in = In();
  return !in.good() || in.peek() == std::char_traits<char>::eof();
}

void TextStream::Close() {
  if (inputOpen) input.close();
  if (outputOpen) {
    output.flush();
    output.close();
  }
  inputOpen = outputOpen = false;
}

}  // namespace Quorel
