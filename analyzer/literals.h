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
// Predicate analysis (AnalyzeWhole and the sound-change handlers).
constexpr const char* kEu = "\xC0\xB8";         // 으
constexpr const char* kAt = "\xBE\xD2";         // 았
constexpr const char* kHa = "\xC7\xCF";         // 하
constexpr const char* kSyeo = "\xBC\xC5";       // 셔
constexpr const char* kGe = "\xB0\xD4";         // 게
constexpr const char* kKi = "\xC5\xB0";         // 키
constexpr const char* kSe = "\xBC\xBC";         // 세
constexpr const char* kDeut = "\xB5\xED";       // 듯
constexpr const char* kMyeon = "\xB8\xE9";      // 면
constexpr const char* kJamoNieun = "\xA4\xA4";  // ㄴ
constexpr const char* kJamoRieul = "\xA4\xA9";  // ㄹ
constexpr const char* kJamoMieum = "\xA4\xB1";  // ㅁ
constexpr const char* kJamoBieup = "\xA4\xB2";  // ㅂ

// Noun analysis: the pending analyses and the remainder.
namespace Noun {
constexpr const char* kIn = "\xC0\xCE";                // 인
constexpr const char* kRoga = "\xB7\xCE\xB0\xA1";     // 로가
// The josa that rank a stem end, searched as a substring.
constexpr const char* kStemEndJosa =
    "\xB4\xC2:\xB8\xA6:\xB2\xB2:\xC0\xBB:\xC0\xBA";  // 는:를:께:을:은
constexpr const char* kJi = "\xC1\xF6";                // 지
constexpr const char* kMal = "\xB8\xBB";               // 말
constexpr const char* kMotha = "\xB8\xF8\xC7\xCF";    // 못하
constexpr const char* kAnh = "\xBE\xCA";               // 않
}  // namespace Noun

// Stem constructions: copula, suffixes, prefinal endings.
namespace Stem {
constexpr const char* kI = "\xC0\xCC";            // 이
constexpr const char* kGeu = "\xB1\xD7";          // 그
constexpr const char* kJeo = "\xC0\xFA";          // 저
constexpr const char* kDoe = "\xB5\xC7";          // 되
constexpr const char* kDeun = "\xB5\xE7";         // 든
constexpr const char* kJi = "\xC1\xF6";           // 지
constexpr const char* kGeori = "\xB0\xC5\xB8\xAE";  // 거리
constexpr const char* kDae = "\xB4\xEB";          // 대
constexpr const char* kEusi = "\xC0\xB8\xBD\xC3";   // 으시
constexpr const char* kEot = "\xBE\xFA";          // 었
constexpr const char* kO = "\xBF\xC0";            // 오
constexpr const char* kYa = "\xBE\xDF";           // 야
constexpr const char* kHae = "\xC7\xD8";          // 해
constexpr const char* kSi = "\xBD\xC3";           // 시
}  // namespace Stem
}  // namespace Hangul
}  // namespace Quorel

#endif  // QRLSL_ANALYZER_LITERALS_H_
