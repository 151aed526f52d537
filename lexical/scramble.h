// The scrambled record format of synonym files. A record is a 12-byte length
// field, then the body. The body is the line with each byte XOR-ed with
// scrambleByte, in upper-case hexadecimal, two characters a byte, high nibble
// first. The length field is the hexadecimal form of the text of
// (body length + lengthOffset) * scrambleByte, five decimal digits with
// leading zeros, and a line feed. Lines up to kMaxScrambledLine bytes fit.
#ifndef QRLSL_LEXICAL_SCRAMBLE_H_
#define QRLSL_LEXICAL_SCRAMBLE_H_

#include <cstddef>
#include <cstdio>
#include <string>

namespace Quorel {

constexpr unsigned char scrambleByte = 0x5A;
constexpr int lengthOffset = 77;
constexpr int kLengthFieldSize = 12;
// The longest line whose number still takes five digits.
constexpr size_t kMaxScrambledLine = (99999 / scrambleByte - lengthOffset) / 2;

// Appends the record of the `length` bytes at `line` to `record`. False, and
// nothing appended, when the line is longer than kMaxScrambledLine.
bool ScrambleLine(const char* line, size_t length, std::string& record);

// Reads the next record into `line`, decoded. 1: a line was read; 0: the
// record's number is 0 and it is passed over; -1: the end of the file, or a
// record that is cut off or has an impossible length.
int ReadScrambledRecord(FILE* file, std::string& line);

}  // namespace Quorel

#endif  // QRLSL_LEXICAL_SCRAMBLE_H_
