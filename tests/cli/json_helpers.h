// A strict reader of one JSON document, for checking what qrl writes: any
// syntax error, bad escape or trailing text fails the parse.
#ifndef QRLSL_TESTS_CLI_JSON_HELPERS_H_
#define QRLSL_TESTS_CLI_JSON_HELPERS_H_

#include <string>
#include <utility>
#include <vector>

namespace clitest {

struct JsonValue {
  enum class Kind { kNull, kBool, kNumber, kString, kArray, kObject };
  Kind kind = Kind::kNull;
  bool boolean = false;
  double number = 0;
  std::string text;  // a string's UTF-8 content
  std::vector<JsonValue> items;
  std::vector<std::pair<std::string, JsonValue>> members;

  // The member named `key`; a null value when there is none.
  const JsonValue& operator[](const std::string& key) const;
  const JsonValue& operator[](size_t index) const { return items.at(index); }
  bool Has(const std::string& key) const;
};

bool ParseJson(const std::string& text, JsonValue& value);

// Each line of `text` parsed; a line that doesn't parse fails the test.
std::vector<JsonValue> JsonLines(const std::string& text);

}  // namespace clitest

#endif  // QRLSL_TESTS_CLI_JSON_HELPERS_H_
