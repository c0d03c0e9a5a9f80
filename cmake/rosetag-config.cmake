# The library, and the toolkit where it is installed: find_package(rosetag COMPONENTS toolkit). The
# component lists is what reads the lists of users, and needs pugixml.
include("${CMAKE_CURRENT_LIST_DIR}/rosetag-targets.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/rosetag-toolkit-targets.cmake" OPTIONAL
    RESULT_VARIABLE rosetag_toolkit_FOUND)
if("lists" IN_LIST rosetag_FIND_COMPONENTS)
    include(CMakeFindDependencyMacro)
    find_dependency(pugixml)
    include("${CMAKE_CURRENT_LIST_DIR}/rosetag-lists-targets.cmake" OPTIONAL
        RESULT_VARIABLE rosetag_lists_FOUND)
endif()
foreach(component IN LISTS rosetag_FIND_COMPONENTS)
    if(rosetag_FIND_REQUIRED_${component} AND NOT rosetag_${component}_FOUND)
        set(rosetag_FOUND FALSE)
        set(rosetag_NOT_FOUND_MESSAGE "rosetag's component ${component} is not installed")
    endif()
endforeach()
