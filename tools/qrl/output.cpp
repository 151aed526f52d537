// Writers of the output forms. Each eojul becomes one string in `line`,
// written at once; the conversion buffers are reused from eojul to eojul.
#include "tools/qrl/output.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <sstream>

#include "eojul/eojul.h"

namespace Quorel {
namespace cli {

bool ParseFormat(const std::string& name, Format& format) {
  static const struct {
    const char* name;
    Format format;
  } kFormats[] = {{"full", Format::kFull},
                  {"compact", Format::kCompact},
                  {"tsv", Format::kTsv},
                  {"json", Format::kJson},
                  {"index", Format::kIndex}};
  for (const auto& entry : kFormats) {
    if (name == entry.name) {
      format = entry.format;
      return true;
    }
  }
  return false;
}

void AppendJsonString(std::string& out, const char* utf8) {
  out += '"';
  for (const char* p = utf8; p != nullptr && *p != 0; ++p) {
    unsigned char c = static_cast<unsigned char>(*p);
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\b': out += "\\b"; break;
      case '\f': out += "\\f"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20) {
          char escape[8];
          std::snprintf(escape, sizeof escape, "\\u%04x", c);
          out += escape;
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  out += '"';
}

void AppendJsonNumber(std::string& out, double value) {
  if (!std::isfinite(value)) {
    out += "null";
    return;
  }
  char digits[32];
  auto result = std::to_chars(digits, digits + sizeof digits, value);
  out.append(digits, result.ptr);
}

void EojulWriter::AppendUtf8(const char* cp949) {
  line += recoder.ToUtf8(cp949 == nullptr ? "" : cp949);
}

void EojulWriter::AppendJsonUtf8(const char* cp949) {
  AppendJsonString(line, recoder.ToUtf8(cp949 == nullptr ? "" : cp949).c_str());
}

void EojulWriter::Write(QR_Eojul& e, int offset) {
  line.clear();
  switch (format) {
    case Format::kFull:
    case Format::kCompact: {
      std::ostringstream printed;
      static_cast<Eojul&>(e).Print(printed, format == Format::kCompact);
      AppendUtf8(printed.str().c_str());
      break;
    }
    case Format::kTsv: WriteTsv(e); break;
    case Format::kJson: WriteJson(e, offset); break;
    case Format::kIndex: WriteIndex(e); break;
  }
  out << line;
}

// A candidate closed without morphemes leaves an empty slot in the list;
// the tabular forms pass over it.
void EojulWriter::WriteTsv(QR_Eojul& e) {
  AppendUtf8(e.GetString());
  for (int c = 0; c < e.GetListSize(); ++c) {
    int count = e.GetCount(c);
    if (count <= 0) continue;
    line += '\t';
    for (int m = 0; m < count; ++m) {
      if (m > 0) line += '+';
      AppendUtf8(e.GetLexicon(c, m));
      line += '/';
      line += e.GetStrPOS(c, m);
    }
  }
  line += '\n';
}

void EojulWriter::WriteJson(QR_Eojul& e, int offset) {
  line += "{\"surface\":";
  AppendJsonUtf8(e.GetString());
  line += ",\"offset\":" + std::to_string(offset) + ",\"candidates\":[";
  bool firstCandidate = true;
  for (int c = 0; c < e.GetListSize(); ++c) {
    int count = e.GetCount(c);
    if (count <= 0) continue;
    line += firstCandidate ? "{\"score\":" : ",{\"score\":";
    firstCandidate = false;
    AppendJsonNumber(line, e.GetScore(c));
    line += ",\"morphemes\":[";
    for (int m = 0; m < count; ++m) {
      line += m == 0 ? "{\"lexicon\":" : ",{\"lexicon\":";
      AppendJsonUtf8(e.GetLexicon(c, m));
      line += ",\"tag\":";
      AppendJsonString(line, e.GetStrPOS(c, m));
      line += ",\"pos\":" + std::to_string(e.GetPOS(c, m));
      line += e.IsIndexWord(c, m) ? ",\"index\":true" : ",\"index\":false";
      line += ",\"start\":" + std::to_string(e.GetStartOffset(c, m));
      line += ",\"end\":" + std::to_string(e.GetEndOffset(c, m)) + "}";
    }
    line += "]}";
  }
  line += "]}\n";
}

void EojulWriter::WriteIndex(QR_Eojul& e) {
  AppendUtf8(e.GetString());
  std::string seen = "\t";  // the words written so far, each followed by TAB
  for (int c = 0; c < e.GetListSize(); ++c) {
    for (int m = 0; m < e.GetCount(c); ++m) {
      if (!e.IsIndexWord(c, m)) continue;
      const std::string& word = recoder.ToUtf8(e.GetLexicon(c, m));
      if (word.empty() || seen.find("\t" + word + "\t") != std::string::npos) {
        continue;
      }
      seen += word + "\t";
      line += "\t" + word;
    }
  }
  line += '\n';
}

}  // namespace cli
}  // namespace Quorel
