# cmake -DRULE=file.rules -P checkudevrule.cmake
#
# Checks a udev rules file against the rule syntax of udev(7), for udev versions without
# `udevadm verify`: every rule is a comma-separated list of KEY[{attr}]OP"value", match keys
# compare (== !=) and assignment keys assign (= += -= :=), and each rule matches something and
# assigns something. Then checks that the rule gives USB3 Vision devices to the user.

cmake_minimum_required(VERSION 3.16)

if(NOT EXISTS "${RULE}")
    message(FATAL_ERROR "no rule file ${RULE}")
endif()
file(STRINGS "${RULE}" lines)
set(match_keys ACTION DEVPATH KERNEL NAME SYMLINK SUBSYSTEM DRIVER ATTR SYSCTL KERNELS
    SUBSYSTEMS DRIVERS ATTRS TAGS ENV CONST TAG TEST PROGRAM RESULT)
set(assign_keys NAME SYMLINK OWNER GROUP MODE SECLABEL ATTR SYSCTL ENV TAG RUN LABEL GOTO
    IMPORT OPTIONS)
set(rules 0)
set(errors "")
set(line_number 0)
foreach(line IN LISTS lines)
    math(EXPR line_number "${line_number} + 1")
    string(STRIP "${line}" line)
    if(line STREQUAL "" OR line MATCHES "^#")
        continue()
    endif()
    math(EXPR rules "${rules} + 1")
    # Split at the commas between pairs; values are quoted and hold no '",'.
    string(REGEX MATCHALL "[A-Z_]+({[^}]*})?[!:+=-]?=\"[^\"]*\"" pairs "${line}")
    string(REGEX REPLACE "[A-Z_]+({[^}]*})?[!:+=-]?=\"[^\"]*\"" "" rest "${line}")
    string(REGEX REPLACE "[ ,]" "" rest "${rest}")
    if(NOT rest STREQUAL "")
        list(APPEND errors "line ${line_number}: not KEY=\"value\" pairs: '${rest}'")
    endif()
    set(matches 0)
    set(assignments 0)
    foreach(pair IN LISTS pairs)
        string(REGEX MATCH "^([A-Z_]+)({[^}]*})?([!:+=-]?=)" _ "${pair}")
        set(key "${CMAKE_MATCH_1}")
        set(op "${CMAKE_MATCH_3}")
        if(op STREQUAL "==" OR op STREQUAL "!=")
            if(NOT key IN_LIST match_keys)
                list(APPEND errors "line ${line_number}: ${key} cannot be matched")
            endif()
            math(EXPR matches "${matches} + 1")
        else()
            if(NOT key IN_LIST assign_keys)
                list(APPEND errors "line ${line_number}: ${key} cannot be assigned")
            endif()
            math(EXPR assignments "${assignments} + 1")
        endif()
    endforeach()
    if(matches EQUAL 0 OR assignments EQUAL 0)
        list(APPEND errors "line ${line_number}: a rule must match and assign")
    endif()
endforeach()
if(rules EQUAL 0)
    list(APPEND errors "no rule")
endif()

# USB3 Vision by interface class EF, subclass 05 (control, event and streaming interfaces),
# for the seat's user and the plugdev group.
file(READ "${RULE}" text)
foreach(needed "ENV{ID_USB_INTERFACES}==\"*:ef05??:*\"" "TAG+=\"uaccess\"" "GROUP=\"plugdev\""
        "ENV{DEVTYPE}==\"usb_device\"")
    string(FIND "${text}" "${needed}" at)
    if(at EQUAL -1)
        list(APPEND errors "the rule lacks ${needed}")
    endif()
endforeach()

if(errors)
    list(JOIN errors "\n" text)
    message(FATAL_ERROR "${text}")
endif()
message(STATUS "${RULE}: ${rules} rule(s), syntax and match correct")
