# Builds small houses, a sound one and some with one fault each, and checks what the check of the
# floors makes of them.
# Usage: cmake -DCHECK=<CheckFloors.cmake> -DWORK=<folder> -P BrokenHouses.cmake
cmake_minimum_required(VERSION 3.25)

# A sound house with one more file, and whether the check passes it; if not, what it must say.
function(expect outcome path content)
    file(REMOVE_RECURSE ${WORK})
    file(WRITE ${WORK}/Sources/Base/Range.h "#include <cmath>\n")
    file(WRITE ${WORK}/Sources/Profiles/Curve.h "#include \"Base/Range.h\"\n")
    file(WRITE ${WORK}/Sources/Platform/Bus.cpp "#include <unistd.h>\n#include <QObject>\n")
    file(WRITE ${WORK}/Sources/TervaleWindow/Controls/Button.h "#include <QWidget>\n")
    file(WRITE ${WORK}/Sources/TervaleWindow/Overview/Pane.cpp
        "#include \"Profiles/Curve.h\"\n#include \"TervaleWindow/Controls/Button.h\"\n")
    foreach(folder Base Profiles Platform TervaleWindow/Controls TervaleWindow/Overview)
        file(WRITE ${WORK}/Tests/${folder}/Tests.cpp "")
    endforeach()
    file(WRITE ${WORK}/Tests/Support/Help.h "")
    file(WRITE ${WORK}/${path} "${content}")
    execute_process(COMMAND ${CMAKE_COMMAND} -DROOT=${WORK} -P ${CHECK}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(outcome STREQUAL "sound")
        if(NOT result EQUAL 0)
            message(SEND_ERROR "${path}: a sound house was refused: ${output}")
        endif()
        return()
    endif()
    string(FIND "${output}" "${outcome}" found)
    if(result EQUAL 0 OR found EQUAL -1)
        message(SEND_ERROR "${path}: expected '${outcome}', not: ${output}")
    endif()
endfunction()

expect(sound Sources/Base/More.cpp "#include \"Base/Range.h\"\n")
expect("Profiles/Curve.h lies on a higher floor" Sources/Base/More.cpp
    "  #  include \"Profiles/Curve.h\"\n")
expect("Range.h is not named from Sources/" Sources/Base/More.cpp "#include \"Range.h\"\n")
expect("unistd.h belongs to an operating system" Sources/Profiles/More.cpp
    "#include <unistd.h>\n")
expect("QString belongs to the window's toolkit" Sources/Profiles/More.mm "#import <QString>\n")
expect("nlohmann/json.hpp belongs to the JSON library" Sources/Profiles/More.h
    "#include <nlohmann/json.hpp>\n")
expect("TervaleWindow/Controls/Button.h lies on a higher floor" Sources/Platform/More.cpp
    "#include \"TervaleWindow/Controls/Button.h\"\n")
expect("TervaleWindow/Overview/Pane.cpp lies in a room" Sources/TervaleWindow/Controls/More.cpp
    "#include \"TervaleWindow/Overview/Pane.cpp\"\n")
expect("TervaleWindow/Overview/Pane.cpp lies in a room" Sources/TervaleWindow/Settings/More.cpp
    "#include \"TervaleWindow/Overview/Pane.cpp\"\n")
expect("no floor is known by the name Cellar" Sources/Cellar/More.cpp "")
expect("no room of the window is known by the name" Sources/TervaleWindow/Attic/More.cpp "")
expect("Sources/SMC: has no tests" Sources/SMC/More.cpp "")
expect("Tests/Attic: mirrors no folder of Sources" Tests/Attic/More.cpp "")
file(REMOVE_RECURSE ${WORK})
