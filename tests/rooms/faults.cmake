# Three faults that rooms.cmake must tell of: cmake -DFAULTS=FOLDER -P faults.cmake
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND ${CMAKE_COMMAND} -DLIBRARY=${FAULTS} -P ${CMAKE_CURRENT_LIST_DIR}/rooms.cmake
                RESULT_VARIABLE result ERROR_VARIABLE told)
string(REGEX REPLACE "[ \n]+" " " told "${told}")
foreach(fault "low may include high, which does not stand above it" "high may not include low"
        "stray/stray.h: its folder is no room")
    if(result EQUAL 0 OR NOT told MATCHES "${fault}")
        message(FATAL_ERROR "not told: ${fault}\n${told}")
    endif()
endforeach()
