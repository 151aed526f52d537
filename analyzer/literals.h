// CP949 forms of the few Hangul literals the analysis routes compare with.
#ifndef QRLSL_ANALYZER_LITERALS_H_
#define QRLSL_ANALYZER_LITERALS_H_

namespace Quorel {
namespace Hangul {
constexpr const char* kHago = "\xC7\xCF\xB0\xED";   // 하고
constexpr const char* kHamyeo = "\xC7\xCF\xB8\xE7"; // 하며
constexpr const char* kEo = "\xBE\xEE";             // 어
constexpr const char* kGi = "\xB1\xE2";             // 기
constexpr const char* kReo = "\xB7\xAF";            // 러
constexpr const char* kReu = "\xB8\xA3";            // 르
constexpr const char* kAni = "\xBE\xC6\xB4\xCF";    // 아니
constexpr const char* kA = "\xBE\xC6";              // 아
constexpr const char* kYeo = "\xBF\xA9";            // 여
}  // namespace Hangul
}  // namespace Quorel

#endif  // QRLSL_ANALYZER_LITERALS_H_
