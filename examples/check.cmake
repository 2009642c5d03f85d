# Runs `program` with `input` on its standard input, compares what it prints with the file `output`, and looks for
# `source` and `output` in `readme`.

file(READ ${output} expected)
execute_process(COMMAND ${program} INPUT_FILE ${input} OUTPUT_VARIABLE printed RESULT_VARIABLE status)
string(REPLACE "\r\n" "\n" printed "${printed}")
if(NOT status EQUAL 0 OR NOT printed STREQUAL expected)
    message(FATAL_ERROR "${program} gives status ${status} and prints\n${printed}\ninstead of\n${expected}")
endif()

file(READ ${readme} page)
foreach(file IN ITEMS ${source} ${output})
    file(READ ${file} text)
    string(FIND "${page}" "\n${text}```\n" position)
    if(position EQUAL -1)
        message(FATAL_ERROR "${readme} does not show ${file} as it is")
    endif()
endforeach()
