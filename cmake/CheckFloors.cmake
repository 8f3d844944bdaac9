# Fails if a floor includes a higher one or a header that its floor may not know, if a room of the
# window includes one that comes after it, or if Tests does not mirror Sources.
# Usage: cmake -DROOT=<project> -P CheckFloors.cmake
cmake_minimum_required(VERSION 3.25)

# What each folder of Sources may include of the others.
set(may_Base Base)
set(may_SMC Base SMC)
set(may_JSON Base JSON)
set(may_Profiles Base SMC JSON Profiles)
set(may_Agent ${may_Profiles} Agent)
set(may_Platform ${may_Profiles} Platform)
set(may_Simulation ${may_Agent} Simulation)
set(may_Machine ${may_Agent} Platform Simulation Machine)
set(may_TervaleWindow ${may_Machine} TervaleWindow)
set(may_tervale-simulator ${may_Machine} tervale-simulator)
set(may_tervale-agent ${may_Machine} tervale-agent)
set(may_tervalectl ${may_Machine} tervalectl)

# The same for the rooms of the window. The panes do not include one another, and what only draws
# knows no model.
set(may_TervaleWindow/Model Model)
set(may_TervaleWindow/Appearance Appearance)
set(may_TervaleWindow/Style Appearance Style)
set(may_TervaleWindow/Controls Appearance Style Controls)
set(may_TervaleWindow/Gauges Appearance Style Controls Gauges)
set(may_TervaleWindow/Accessibility Appearance Style Controls Gauges Accessibility)
set(panes Overview Sensors Profiles Settings)
foreach(pane IN LISTS panes)
    set(may_TervaleWindow/${pane} Model Appearance Style Controls Gauges Accessibility ${pane})
endforeach()
set(may_TervaleWindow/Shell Model Appearance Style Controls Gauges Accessibility ${panes} Shell)

# Folders of Tests that mirror none of Sources.
set(tests_alone Benchmarks Faults Floors Packaging Processes Support fixtures TervaleWindow/Shots
    TervaleWindow/Support)

# Angle-bracket headers of an operating system, a toolkit or a library.
set(foreign "^(sys/|unistd\\.h|fcntl\\.h|poll\\.h|signal\\.h|netinet/|arpa/|mach/|IOKit/|CoreFoundation/|CoreGraphics/|Foundation/|AppKit/|ServiceManagement/|objc/|dbus/|systemd/)")
set(toolkit "^Q[A-Z]")
set(toolkit_users TervaleWindow tervale-agent tervale-simulator tervalectl Machine Platform)
set(json "^nlohmann/")

set(faults 0)
# Tells a fault, and counts it.
macro(report text)
    message("${text}")
    math(EXPR faults "${faults} + 1")
endmacro()

# What is wrong with including "header", in quotes, in a file of the folder or the room. Empty if
# nothing is.
macro(find_fault_of_own_header)
    string(REGEX MATCH "^[^/]+" target "${header}")
    string(REGEX MATCH "^TervaleWindow/([^/]+)/" ignored "${header}")
    set(target_room "${CMAKE_MATCH_1}")
    if(NOT EXISTS ${ROOT}/Sources/${header})
        set(fault "is not named from Sources/")
    elseif(NOT target IN_LIST may_${folder})
        set(fault "lies on a higher floor")
    elseif(room AND target STREQUAL "TervaleWindow" AND NOT target_room IN_LIST may_${room})
        set(fault "lies in a room that ${room} may not know")
    endif()
endmacro()

# The same for a header in angle brackets.
macro(find_fault_of_foreign_header)
    if(header MATCHES "${foreign}" AND NOT folder STREQUAL "Platform")
        set(fault "belongs to an operating system, which only Sources/Platform may know")
    elseif(header MATCHES "${toolkit}" AND NOT folder IN_LIST toolkit_users)
        set(fault "belongs to the window's toolkit")
    elseif(header MATCHES "${json}" AND NOT folder STREQUAL "JSON")
        set(fault "belongs to the JSON library")
    endif()
endmacro()

file(GLOB_RECURSE sources RELATIVE ${ROOT}/Sources
    ${ROOT}/Sources/*.h ${ROOT}/Sources/*.cpp ${ROOT}/Sources/*.mm)
set(folders_with_code "")
foreach(source IN LISTS sources)
    string(REGEX MATCH "^[^/]+" folder "${source}")
    cmake_path(GET source PARENT_PATH place)
    list(APPEND folders_with_code ${place})
    if(NOT DEFINED may_${folder})
        report("Sources/${source}: no floor is known by the name ${folder}")
        continue()
    endif()
    set(room "")
    if(folder STREQUAL "TervaleWindow")
        string(REGEX MATCH "^TervaleWindow/[^/]+" room "${source}")
        if(NOT DEFINED may_${room})
            report("Sources/${source}: no room of the window is known by the name ${room}")
            continue()
        endif()
    endif()
    file(STRINGS ${ROOT}/Sources/${source} includes
        REGEX "^[ \t]*#[ \t]*(include|import)[ \t]*[<\"]")
    foreach(line IN LISTS includes)
        string(REGEX MATCH "([<\"])([^>\"]+)[>\"]" ignored "${line}")
        set(bracket "${CMAKE_MATCH_1}")
        set(header "${CMAKE_MATCH_2}")
        set(fault "")
        if(bracket STREQUAL "\"")
            find_fault_of_own_header()
        else()
            find_fault_of_foreign_header()
        endif()
        if(fault)
            report("Sources/${source}: ${header} ${fault}")
        endif()
    endforeach()
endforeach()

list(REMOVE_DUPLICATES folders_with_code)
foreach(folder IN LISTS folders_with_code)
    file(GLOB tests ${ROOT}/Tests/${folder}/*)
    if(NOT tests)
        report("Sources/${folder}: has no tests in Tests/${folder}")
    endif()
endforeach()

file(GLOB folders_of_tests LIST_DIRECTORIES true RELATIVE ${ROOT}/Tests
    ${ROOT}/Tests/* ${ROOT}/Tests/TervaleWindow/*)
foreach(folder IN LISTS folders_of_tests)
    if(IS_DIRECTORY ${ROOT}/Tests/${folder} AND NOT folder IN_LIST tests_alone
            AND NOT IS_DIRECTORY ${ROOT}/Sources/${folder})
        report("Tests/${folder}: mirrors no folder of Sources, and is not listed as one that need not")
    endif()
endforeach()

if(faults)
    message(FATAL_ERROR "${faults} faults in the order of the house")
endif()
