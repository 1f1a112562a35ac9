# Builds a host outside of this project and compares what it prints; CMakeLists.txt tells the variables.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGV}\n${output}")
  endif()
endfunction()

run(${CMAKE_COMMAND} -S ${source} -B ${build} -G Ninja -D CMAKE_CXX_COMPILER=${compiler} -D CMAKE_CXX_FLAGS=${flags}
  -D CMAKE_PREFIX_PATH=${installed})
run(${CMAKE_COMMAND} --build ${build})

execute_process(COMMAND ${build}/${program} . WORKING_DIRECTORY ${source} OUTPUT_VARIABLE printed RESULT_VARIABLE result)
file(READ ${expected} wanted)
if(NOT result EQUAL 0 OR NOT printed STREQUAL wanted)
  message(FATAL_ERROR "${program} ended with ${result} and printed\n${printed}instead of\n${wanted}")
endif()
