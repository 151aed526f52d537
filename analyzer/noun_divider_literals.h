// CP949 forms of the Hangul literals of compound-noun division.
#ifndef QRLSL_ANALYZER_NOUN_DIVIDER_LITERALS_H_
#define QRLSL_ANALYZER_NOUN_DIVIDER_LITERALS_H_

namespace Quorel {
namespace DividerText {
// The josa syllables a division may end in, searched as a substring.
constexpr const char* kJosaList =
    ":\xB0\xA1:\xB0\xFA:\xB4\xC2:\xB5\xB5:\xB7\xCE:\xB8\xA6:\xB8\xE7:\xBB\xD3"
    ":\xBF\xA1:\xBF\xCD:\xBF\xE4:\xC0\xBA:\xC0\xBB:\xC0\xC7:\xC0\xCC:";
constexpr const char* kButeo = "\xBA\xCE\xC5\xCD";        // 부터
constexpr const char* kKkaji = "\xB1\xEE\xC1\xF6";        // 까지
constexpr const char* kDeul = "\xB5\xE9";                 // 들
constexpr const char* kSsik = "\xBE\xBF";                 // 씩
constexpr const char* kSun = "\xBC\xF8";                  // 순
constexpr const char* kPPun = "\xBB\xD3";                 // 뿐
constexpr const char* kHang = "\xC7\xD7";                 // 항
constexpr const char* kSu = "\xBC\xF6";                   // 수
constexpr const char* kYeo = "\xBF\xA9";                  // 여
constexpr const char* kI = "\xC0\xCC";                    // 이
constexpr const char* kDoe = "\xB5\xC7";                  // 되
constexpr const char* kGwa = "\xB0\xFA";                  // 과
constexpr const char* kUi = "\xC0\xC7";                   // 의
constexpr const char* kIn = "\xC0\xCE";                   // 인
constexpr const char* kJeong = "\xC1\xA4";                // 정
constexpr const char* kGa = "\xB0\xA1";                   // 가
constexpr const char* kEu = "\xC0\xB8";                   // 으
constexpr const char* kBeop = "\xB9\xFD";                 // 법
constexpr const char* kE = "\xBF\xA1";                    // 에
constexpr const char* kHyeong = "\xC7\xFC";               // 형
constexpr const char* kHa = "\xC7\xCF";                   // 하
constexpr const char* kRoseo = "\xB7\xCE\xBC\xAD";        // 로서
constexpr const char* kGehamyeo = "\xB0\xD4\xC7\xCF\xB8\xE7";  // 게하며
// Report texts of the index-word extractor.
constexpr const char* kDivisionHeading =
    "\xBA\xD0\xC7\xD8 \xB0\xE1\xB0\xFA : ";               // 분해 결과 :
constexpr const char* kIndexHeading =
    "\n\xC3\xDF\xC3\xE2\xB5\xC8 \xBB\xF6\xC0\xCE\xBE\xEE : ";  // 추출된 색인어 :
constexpr const char* kCountUnit = " \xB0\xB3";           // 개
constexpr const char* kPatternError = "divpattern error..";
}  // namespace DividerText
}  // namespace Quorel

#endif  // QRLSL_ANALYZER_NOUN_DIVIDER_LITERALS_H_
