# What the scripts of this folder share: run a command, and stop with its output if it fails.
function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        string(REPLACE ";" " " command "${ARGV}")
        message(FATAL_ERROR "${command}\nended with ${result}:\n${output}")
    endif()
    set(RUN_OUTPUT "${output}" PARENT_SCOPE)
endfunction()
