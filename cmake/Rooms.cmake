# Fails when a room of src/ includes what it must not know. Run by each build:
#   cmake -D SOURCE=<folder of the rooms> -P Rooms.cmake
# A room may include from the rooms of the lines below its own, and from none beside it.
cmake_policy(VERSION 3.25)

set(floors
    "app"
    "mainwindow"
    "clientcard staff statreturn printouts backup oldregister datacheck help"
    "words"
    "card"
    "printing"
    "validation"
    "forms"
    "report spelling"
    "store")
# What these rooms are made for has no clients and no employees.
set(nobodys forms spelling report)
set(tables "k_(zaklad|memo|surodenci|zariad|vysetrenie|zaznam_|navstevy)|zamestnanci")

# Sets floor_<room> for each room, counted from the roof.
set(floor 0)
foreach(line IN LISTS floors)
    separate_arguments(rooms UNIX_COMMAND "${line}")
    foreach(room IN LISTS rooms)
        set(floor_${room} ${floor})
    endforeach()
    math(EXPR floor "${floor} + 1")
endforeach()

set(faults "")
file(GLOB_RECURSE files RELATIVE ${SOURCE} ${SOURCE}/*.h ${SOURCE}/*.cpp)
if(NOT files)
    message(FATAL_ERROR "There are no rooms in ${SOURCE}.")
endif()
foreach(file IN LISTS files)
    string(REGEX REPLACE "/.*" "" room ${file})
    if(NOT DEFINED floor_${room})
        list(APPEND faults "${file}: the room ${room} stands on no floor of cmake/Rooms.cmake")
        continue()
    endif()
    file(STRINGS ${SOURCE}/${file} lines REGEX "^ *# *include *\"")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^[^\"]*\"([^\"]*)\".*" "\\1" header "${line}")
        string(REGEX REPLACE "/.*" "" known "${header}")
        if(header MATCHES "\\.\\.")
            list(APPEND faults "${file}: includes ${header} by a way around its room")
        elseif(DEFINED floor_${known} AND NOT known STREQUAL room
               AND NOT floor_${known} GREATER floor_${room})
            list(APPEND faults "${file}: ${room} must not know ${known}")
        elseif(header MATCHES "/" AND NOT EXISTS ${SOURCE}/${header}
               AND NOT EXISTS ${SOURCE}/${room}/${header})
            list(APPEND faults "${file}: ${header} lies in no room")
        endif()
    endforeach()
    if(room IN_LIST nobodys)
        file(STRINGS ${SOURCE}/${file} lines REGEX "${tables}")
        if(lines)
            list(APPEND faults "${file}: ${room} must not name a table of clients or employees")
        endif()
    endif()
endforeach()

if(faults)
    list(REMOVE_DUPLICATES faults)
    list(JOIN faults "\n  " told)
    message(FATAL_ERROR "The rooms know what they must not:\n  ${told}")
endif()
