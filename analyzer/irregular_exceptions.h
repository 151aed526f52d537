// The exception lists of the sound-change handlers: stems that look
// irregular but conjugate regularly (or in another class). A stem belongs to
// a list when ":" + stem + ":" occurs in it; the handler then gives up.
#ifndef QRLSL_ANALYZER_IRREGULAR_EXCEPTIONS_H_
#define QRLSL_ANALYZER_IRREGULAR_EXCEPTIONS_H_

namespace Quorel {
namespace IrregularExceptions {

// Read by EuDrop.
constexpr const char kEuExceptions[] =
    ":"
    "\xB0\xA1\xB8\xA3:"  // 가르
    "\xB0\xB3\xB8\xA3:"  // 개르
    "\xB1\xB8\xB8\xA3:"  // 구르
    "\xB5\xCE\xB8\xA3:"  // 두르
    "\xB9\xD9\xB8\xA3:"  // 바르
    "\xBA\xBC\xC1\xF6\xB8\xA3:"  // 볼지르
    "\xBA\xCE\xB8\xA3:"  // 부르
    "\xBB\xE7\xB8\xA3:"  // 사르
    "\xBE\xC6\xBF\xEC\xB8\xA3:"  // 아우르
    "\xBF\xC0\xB8\xA3:"  // 오르
    "\xC0\xDA\xB8\xA3:"  // 자르
    "\xC2\xA5\xB8\xA3:";  // 짜르

// Read by SIrregular.
constexpr const char kSExceptions[] =
    ":"
    "\xB1\xEA:"  // 깃
    "\xB5\xC7\xBB\xA9\xBE\xD1:"  // 되빼앗
    "\xB9\xFE:"  // 벗
    "\xBA\xF8:"  // 빗
    "\xBB\xAF:"  // 뺏
    "\xBB\xA9\xBE\xD1:"  // 빼앗
    "\xBC\xDA:"  // 솟
    "\xBE\xC4:"  // 씻
    "\xBE\xD1:"  // 앗
    "\xBF\xF4:";  // 웃

// Read by DIrregular.
constexpr const char kDExceptions[] =
    ":"
    "\xB0\xF0:"  // 곧
    "\xB1\xBB:"  // 굳
    "\xB4\xDD:"  // 닫
    "\xB5\xB8:"  // 돋
    "\xB5\xF3:"  // 딛
    "\xB6\xE2:"  // 뜯
    "\xB9\xCF:"  // 믿
    "\xB9\xDE:"  // 받
    "\xB9\xF9:"  // 벋
    "\xBB\xB8:"  // 뻗
    "\xBC\xBC\xB9\xDE:"  // 세받
    "\xBD\xF1:"  // 쏟
    "\xBE\xF2:";  // 얻

// Read by BIrregular.
constexpr const char kBExceptions[] =
    ":"
    "\xB0\xA8\xC0\xE2:"  // 감잡
    "\xB2\xC5:"  // 꼽
    "\xB3\xAF\xC0\xE2:"  // 날잡
    "\xB9\xAE\xC0\xE2:"  // 문잡
    "\xBB\xCC:"  // 뽑
    "\xBB\xE7\xC0\xD4:"  // 사입
    "\xBC\xF6\xC1\xDD:"  // 수줍
    "\xBE\xC3:"  // 씹
    "\xBE\xEE\xC1\xDD:"  // 어줍
    "\xBE\xF7:"  // 업
    "\xC0\xD4:"  // 입
    "\xC0\xE2:"  // 잡
    "\xC1\xA2:"  // 접
    "\xC1\xBC:"  // 좁
    "\xC1\xBE\xC0\xE2:"  // 종잡
    "\xC1\xD9\xC0\xE2:"  // 줄잡
    "\xC1\xFD:"  // 집
    "\xC3\xA5\xC0\xE2:"  // 책잡
    "\xC7\xEC\xC1\xFD:";  // 헤집

// Read by ReuIrregular.
constexpr const char kReuExceptions[] =
    ":"
    "\xB3\xEB\xB8\xA3:"  // 노르
    "\xB4\xD9\xB4\xD9\xB8\xA3:"  // 다다르
    "\xB5\xE9\xB8\xA3:"  // 들르
    "\xB5\xFB\xB8\xA3:"  // 따르
    "\xC4\xA1\xB8\xA3:"  // 치르
    "\xC7\xAA\xB8\xA3:";  // 푸르

// Read by HIrregular.
constexpr const char kHExceptions[] =
    ":"
    "\xB0\xAA\xB4\xEA:"  // 값닿
    "\xB1\xDD\xB4\xEA:"  // 금닿
    "\xB3\xA1\xB4\xEA:"  // 끝닿
    "\xB4\xEA:"  // 닿
    "\xB5\xBF\xB4\xEA:"  // 동닿
    "\xB5\xE9\xC0\xCC\xB4\xEA:"  // 들이닿
    "\xB5\xEE\xB4\xEA:"  // 등닿
    "\xB8\xC2\xB4\xEA:"  // 맞닿
    "\xB9\xFE\xB4\xEA:"  // 벗닿
    "\xBB\xEC\xB4\xEA:"  // 살닿
    "\xBC\xD5\xB4\xEA:"  // 손닿
    "\xBF\xCD\xB4\xEA:"  // 와닿
    "\xBF\xAC\xB4\xEA:"  // 연닿
    "\xC0\xD5\xB4\xEA:"  // 잇닿
    "\xC8\xFB\xB4\xEA:";  // 힘닿

}  // namespace IrregularExceptions
}  // namespace Quorel

#endif  // QRLSL_ANALYZER_IRREGULAR_EXCEPTIONS_H_
