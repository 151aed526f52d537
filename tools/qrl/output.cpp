// Writers of the output forms. Each eojul becomes one string in `line`,
// written at once; the conversion buffers are reused from eojul to eojul.
#include "tools/qrl/output.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <strings.h>
#include <sstream>

#include "eojul/eojul.h"
#include "tagger/post_passes.h"

namespace Quorel {
namespace cli {

bool ParseFormat(const std::string& name, Format& format) {
  static const struct {
    const char* name;
    Format format;
  } kFormats[] = {{"text", Format::kText},
                  {"full", Format::kFull},
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

void EojulWriter::MorphemeSpan(QR_Eojul& e, int c, int m, size_t& from,
                               size_t& to) {
  // The offset pass writes byte offsets in the surface; -1 and 65535 stand
  // for its start and end.
  const int length = static_cast<int>(end - begin);
  int s = e.GetStartOffset(c, m);
  int t = e.GetEndOffset(c, m);
  s = s < 0 ? 0 : s > length ? length : s;
  t = t < s ? s : t > length ? length : t;
  from = begin + static_cast<size_t>(s);
  to = begin + static_cast<size_t>(t);
}

const std::string& EojulWriter::Lexicon(QR_Eojul& e, int c, int m) {
  const char* cp949 = e.GetLexicon(c, m);
  if (cp949 == nullptr) cp949 = "";
  if (standIn) {
    // A morpheme on stand-ins is written as the input has it (the analysis
    // may have lowered the case of the stand-in letters).
    size_t from, to;
    MorphemeSpan(e, c, m, from, to);
    const LineEdge& edge = *place->edge;
    if (edge.HasStandIn(from, to) && std::strlen(cp949) == to - from &&
        strncasecmp(edge.Cp949().data() + from, cp949, to - from) == 0) {
      lexicon.assign(edge.Written(from, to));
      return lexicon;
    }
  }
  lexicon = recoder.ToUtf8(cp949);
  return lexicon;
}

void EojulWriter::AppendOffsets(size_t from, size_t to) {
  const LineEdge& edge = *place->edge;
  line += ",\"start\":" + std::to_string(place->codePointBase + edge.CodePointAt(from));
  line += ",\"end\":" + std::to_string(place->codePointBase + edge.CodePointAt(to));
  line += ",\"byte_start\":" + std::to_string(place->byteBase + edge.ByteAt(from));
  line += ",\"byte_end\":" + std::to_string(place->byteBase + edge.ByteAt(to));
}

void EojulSpan(QR_Eojul& e, int offset, const LinePlace& place, size_t& begin,
               size_t& end) {
  const LineEdge& edge = *place.edge;
  const size_t size = edge.Cp949().size();
  const size_t at = static_cast<size_t>(offset < 0 ? 0 : offset);
  begin = place.characterOffsets ? edge.Cp949OffsetOfCharacter(at) : at;
  if (begin > size) begin = size;
  // The library's surface has the length of the text it was cut from (it
  // may have lowered its case or read its Hanja).
  const char* surface = e.GetString();
  end = begin + std::strlen(surface == nullptr ? "" : surface);
  if (end > size) end = size;
}

void EojulWriter::Write(QR_Eojul& e, int offset, const LinePlace& where) {
  line.clear();
  place = &where;
  EojulSpan(e, offset, where, begin, end);
  standIn = where.edge->HasStandIn(begin, end);
  if (format == Format::kJson || standIn) PassOffsets(static_cast<Eojul&>(e));
  switch (format) {
    case Format::kFull:
    case Format::kCompact: {
      std::ostringstream printed;
      static_cast<Eojul&>(e).Print(printed, format == Format::kCompact);
      AppendUtf8(printed.str().c_str());
      break;
    }
    case Format::kText:
    case Format::kTsv: WriteTsv(e); break;
    case Format::kJson: WriteJson(e, offset); break;
    case Format::kIndex: WriteIndex(e); break;
  }
  out << line;
}

// A candidate closed without morphemes leaves an empty slot in the list;
// the tabular forms pass over it.
void EojulWriter::WriteTsv(QR_Eojul& e) {
  line += place->edge->Written(begin, end);
  for (int c = 0; c < e.GetListSize(); ++c) {
    int count = e.GetCount(c);
    if (count <= 0) continue;
    line += '\t';
    for (int m = 0; m < count; ++m) {
      if (m > 0) line += '+';
      line += Lexicon(e, c, m);
      line += '/';
      line += e.GetStrPOS(c, m);
    }
  }
  line += '\n';
}

void EojulWriter::WriteJson(QR_Eojul& e, int offset) {
  line += "{\"surface\":";
  AppendJsonString(line, std::string(place->edge->Written(begin, end)).c_str());
  line += ",\"line\":" + std::to_string(place->line);
  line += ",\"offset\":" + std::to_string(offset);
  AppendOffsets(begin, end);
  line += ",\"candidates\":[";
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
      AppendJsonString(line, Lexicon(e, c, m).c_str());
      line += ",\"tag\":";
      AppendJsonString(line, e.GetStrPOS(c, m));
      line += ",\"pos\":" + std::to_string(e.GetPOS(c, m));
      line += e.IsIndexWord(c, m) ? ",\"index\":true" : ",\"index\":false";
      size_t from, to;
      MorphemeSpan(e, c, m, from, to);
      AppendOffsets(from, to);
      line += "}";
    }
    line += "]}";
  }
  line += "]}\n";
}

void EojulWriter::EndLine() {
  if (format == Format::kText) out << "EOS\n";
}

void EojulWriter::WriteIndex(QR_Eojul& e) {
  line += place->edge->Written(begin, end);
  std::string seen = "\t";  // the words written so far, each followed by TAB
  for (int c = 0; c < e.GetListSize(); ++c) {
    for (int m = 0; m < e.GetCount(c); ++m) {
      if (!e.IsIndexWord(c, m)) continue;
      const std::string& word = Lexicon(e, c, m);
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
