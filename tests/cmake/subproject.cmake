# The project as a subproject of another (add_subdirectory): a consumer of
# the static library is configured, built and run in WORK.
# cmake -DSOURCE=<this project> -DWORK=<scratch> -P subproject.cmake
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/consumer)
file(WRITE ${WORK}/consumer/CMakeLists.txt "
cmake_minimum_required(VERSION 3.16)
project(consumer LANGUAGES C CXX)
set(QRLSL_BUILD_TESTS OFF CACHE BOOL \"\" FORCE)
add_subdirectory(\"${SOURCE}\" qrlsl)
add_executable(consumer main.cpp)
target_link_libraries(consumer PRIVATE qrlsl_static)
")
file(WRITE ${WORK}/consumer/main.cpp "
#include <cstdio>
#include \"qrlsl/qrlsl.h\"
int main() {
  Quorel::QR_Knowledge* k = Quorel::CreateKnowledge(false);
  Quorel::QR_Analyzer* a = Quorel::CreateAnalyzer(k);
  a->SetExOption(1);
  a->RunWithString(\"abc 123\");
  std::printf(\"%d\\n\", a->GetEojulCountInSentence());
  delete a;
  delete k;
  return 0;
}
")
execute_process(COMMAND ${CMAKE_COMMAND} -S ${WORK}/consumer -B ${WORK}/build
                  -DCMAKE_BUILD_TYPE=Release
                RESULT_VARIABLE configured)
if(NOT configured EQUAL 0)
  message(FATAL_ERROR "the consumer project does not configure")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/build --target consumer -j 2
                RESULT_VARIABLE built)
if(NOT built EQUAL 0)
  message(FATAL_ERROR "the consumer project does not build")
endif()
execute_process(COMMAND ${WORK}/build/consumer OUTPUT_VARIABLE printed
                RESULT_VARIABLE ran)
if(NOT ran EQUAL 0 OR NOT printed STREQUAL "2\n")
  message(FATAL_ERROR "the consumer printed '${printed}' (status ${ran}), not 2")
endif()
