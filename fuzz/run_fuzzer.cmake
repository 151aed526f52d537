# One short run of a fuzz target over its checked-in seeds, with a fixed
# random seed: new inputs go to a fresh work directory, never among the
# seeds, and an input that fails is kept in WORK/artifacts.
# cmake -DFUZZER=... -DSEEDS=... -DWORK=... -DRUNS=n -DSECONDS=s -P run_fuzzer.cmake
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/corpus ${WORK}/artifacts)
execute_process(
  COMMAND ${FUZZER} -runs=${RUNS} -max_total_time=${SECONDS} -seed=1
    -timeout=30 -rss_limit_mb=3072 -print_final_stats=1
    -artifact_prefix=${WORK}/artifacts/ ${WORK}/corpus ${SEEDS}
  WORKING_DIRECTORY ${WORK}
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${FUZZER} failed (${result}); its input is in ${WORK}/artifacts")
endif()
