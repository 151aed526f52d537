#include "knowledge/knowledge_helpers.h"

namespace Quorel {
namespace testing_knowledge {

void WriteSmallKnowledge(const TempDir& dir) {
  dir.Write("em.dic",
            "; 주석\n"
            "/다\t다/EF 1\n"
            " 다\t다/EF 1\n"
            "다\t다/EF 1\n"
            "는\t는/ETM 0 5#는/EF 0\n"
            "고\t고/EC 1#고/EC 2\n"
            "ㄴ다\tㄴ다/EF 2 0\n"
            "었\t었/EP 0\n"
            "라\t라/EF 1 7\n"
            "자\t자/EF\n"
            "지\t지/EC 1 0 0\n"
            "면\t면EC 1\n"
            "탭없는줄\n"
            "\t다/EF 1\n"
            "게\t게/EC 1 11\n"
            "게\t게/EF 3 13\n");
  dir.Write("js.dic",
            "; 주석\n"
            "가\t이/JK 1#가/JK 2\n"
            "는\t은/JX 2#는/JX 1\n"
            "에\t에/JK 4\n"
            "에서\t에서/JK 0 5\n"
            "도\t도/JX 1#도\n"
            "의\t의/JKG 0\n");
  dir.Write("nng.dic",
            "; 주석\n"
            "학교\n"
            "@사과\n"
            "@@@바나나\n"
            " 공백\n"
            "/빗금\n"
            "서울 무시되는 글\n"
            "가\n"
            "학교생활\n"
            "  \n"
            "김치\t무시\r\n");
  dir.Write("nnp.dic",
            "서울\t서울\n"
            "대한민국\t 대한 민국 \n"
            "빈칸\n");
  dir.Write("nnb.dic", "개\t1\n빈단위\n개\t2\n");
  dir.Write("nu.dic", "하나\t1\n빈수 \n");
  dir.Write("np.dic", "그것\n");
  dir.Write("nni.dic", "세계\n");
  dir.Write("vv.dic", "먹\n");
  dir.Write("va.dic", "예쁘\n");
  dir.Write("ma.dic", "아주\n");
  dir.Write("mm.dic", "새\n");
  dir.Write("ic.dic", "아\n");
  dir.Write("vx.dic", "보\n");
  dir.Write("xp.dic", "제\n 제외\n;주석\n신 \n");
  dir.Write("xsn.dic", "들\n님\n");
  dir.Write("xsnxsn.dic", "들님\n");
  dir.Write("conj.dic", "그리고\n");
  dir.Write("divInfo_freq_sorted.txt",
            "학교 생활\t150\n"
            "사과 나무\t99\n"
            "김치 찌개\t100\n"
            "탭 없음 120\n");
  dir.Write("posInfo_freq_sorted.txt",
            "학교\t10\t20\t30\n"
            "학교\t50\t30\t20\n"
            "가\t100\t0\t0\n"
            "생활\t1\t2\t300\n"
            "모자람\t100\t200\n");
  dir.Write("preanal.sys.dic",
            "먹었다\t먹/VV+었/EP+다/EF\n"
            "나는\t나/NP+는/JX@나/VV+는/ETM\n");
}

}  // namespace testing_knowledge
}  // namespace Quorel
