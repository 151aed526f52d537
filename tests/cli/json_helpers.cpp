// Recursive descent over the JSON grammar; \u escapes (with surrogate pairs)
// come back as UTF-8.
#include "cli/json_helpers.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <cstring>

namespace clitest {

namespace {

class Parser {
 public:
  explicit Parser(const std::string& text) : s(text) {}

  bool Document(JsonValue& value) {
    return Value(value) && (Space(), at == s.size());
  }

 private:
  void Space() {
    while (at < s.size() && std::strchr(" \t\r\n", s[at]) != nullptr) ++at;
  }
  bool Eat(char c) {
    Space();
    if (at < s.size() && s[at] == c) {
      ++at;
      return true;
    }
    return false;
  }
  bool Word(const char* word) {
    size_t n = std::strlen(word);
    if (s.compare(at, n, word) != 0) return false;
    at += n;
    return true;
  }

  bool Value(JsonValue& v) {
    Space();
    if (at >= s.size()) return false;
    char c = s[at];
    if (c == '{') return Object(v);
    if (c == '[') return Array(v);
    if (c == '"') {
      v.kind = JsonValue::Kind::kString;
      return String(v.text);
    }
    if (Word("true") || Word("false")) {
      v.kind = JsonValue::Kind::kBool;
      v.boolean = s[at - 1] == 'e' && s.compare(at - 4, 4, "true") == 0;
      return true;
    }
    if (Word("null")) return true;
    return Number(v);
  }

  bool Number(JsonValue& v) {
    size_t start = at;
    if (at < s.size() && s[at] == '-') ++at;
    if (at >= s.size() || !std::isdigit(static_cast<unsigned char>(s[at]))) return false;
    if (s[at] == '0') {
      ++at;
    } else {
      while (at < s.size() && std::isdigit(static_cast<unsigned char>(s[at]))) ++at;
    }
    if (at < s.size() && s[at] == '.') {
      ++at;
      if (!Digits()) return false;
    }
    if (at < s.size() && (s[at] == 'e' || s[at] == 'E')) {
      ++at;
      if (at < s.size() && (s[at] == '+' || s[at] == '-')) ++at;
      if (!Digits()) return false;
    }
    v.kind = JsonValue::Kind::kNumber;
    v.number = std::strtod(s.substr(start, at - start).c_str(), nullptr);
    return true;
  }
  bool Digits() {
    size_t start = at;
    while (at < s.size() && std::isdigit(static_cast<unsigned char>(s[at]))) ++at;
    return at > start;
  }

  bool Hex4(unsigned& unit) {
    if (at + 4 > s.size()) return false;
    unit = 0;
    for (int k = 0; k < 4; ++k) {
      char c = s[at++];
      unit <<= 4;
      if (c >= '0' && c <= '9') unit |= c - '0';
      else if (c >= 'a' && c <= 'f') unit |= c - 'a' + 10;
      else if (c >= 'A' && c <= 'F') unit |= c - 'A' + 10;
      else return false;
    }
    return true;
  }
  static void AppendUtf8(std::string& out, unsigned cp) {
    if (cp < 0x80) {
      out += static_cast<char>(cp);
    } else if (cp < 0x800) {
      out += static_cast<char>(0xC0 | (cp >> 6));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
      out += static_cast<char>(0xE0 | (cp >> 12));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | (cp >> 18));
      out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    }
  }

  bool String(std::string& out) {
    if (!Eat('"')) return false;
    out.clear();
    while (at < s.size()) {
      unsigned char c = static_cast<unsigned char>(s[at++]);
      if (c == '"') return true;
      if (c < 0x20) return false;  // control characters must be escaped
      if (c != '\\') {
        out += static_cast<char>(c);
        continue;
      }
      if (at >= s.size()) return false;
      char e = s[at++];
      const char* simple = std::strchr("\"\\/bfnrt", e);
      if (simple != nullptr && e != 0) {
        static const char kPlain[] = "\"\\/\b\f\n\r\t";
        out += kPlain[simple - "\"\\/bfnrt"];
      } else if (e == 'u') {
        unsigned unit;
        if (!Hex4(unit)) return false;
        if (unit >= 0xD800 && unit < 0xDC00) {
          unsigned low;
          if (!Word("\\u") || !Hex4(low) || low < 0xDC00 || low > 0xDFFF) return false;
          unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        }
        AppendUtf8(out, unit);
      } else {
        return false;
      }
    }
    return false;
  }

  bool Array(JsonValue& v) {
    v.kind = JsonValue::Kind::kArray;
    Eat('[');
    if (Eat(']')) return true;
    do {
      v.items.emplace_back();
      if (!Value(v.items.back())) return false;
    } while (Eat(','));
    return Eat(']');
  }

  bool Object(JsonValue& v) {
    v.kind = JsonValue::Kind::kObject;
    Eat('{');
    if (Eat('}')) return true;
    do {
      v.members.emplace_back();
      Space();
      if (!String(v.members.back().first) || !Eat(':') ||
          !Value(v.members.back().second)) {
        return false;
      }
    } while (Eat(','));
    return Eat('}');
  }

  const std::string& s;
  size_t at = 0;
};

}  // namespace

const JsonValue& JsonValue::operator[](const std::string& key) const {
  static const JsonValue kMissing;
  for (const auto& member : members) {
    if (member.first == key) return member.second;
  }
  return kMissing;
}

bool JsonValue::Has(const std::string& key) const {
  for (const auto& member : members) {
    if (member.first == key) return true;
  }
  return false;
}

bool ParseJson(const std::string& text, JsonValue& value) {
  value = JsonValue();
  return Parser(text).Document(value);
}

std::vector<JsonValue> JsonLines(const std::string& text) {
  std::vector<JsonValue> values;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    values.emplace_back();
    EXPECT_TRUE(ParseJson(text.substr(start, end - start), values.back()))
        << text.substr(start, end - start);
    start = end + 1;
  }
  return values;
}

}  // namespace clitest
