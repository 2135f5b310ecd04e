# The kinds of target that this project has.

# One folder of src/ as the library rulemesh_<layer>:
#
#   rulemesh_add_layer(script SOURCES keywords.cpp ... BELOW object platform views)
#
# Includes run from src/ ("script/keywords.h"), but src/ itself is on no include path: each layer has a root of its
# own in the build tree, which holds nothing but a link to its folder. A layer sees the roots of the layers below it and
# no others, so an include that points up does not compile.
function(rulemesh_add_layer layer)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FOLDER" "SOURCES;BELOW")
    if(NOT arg_FOLDER)
        set(arg_FOLDER "${layer}")
    endif()

    set(root "${PROJECT_BINARY_DIR}/include/${layer}")
    cmake_path(GET arg_FOLDER PARENT_PATH within)
    file(MAKE_DIRECTORY "${root}/${within}")
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${root}/${arg_FOLDER}" SYMBOLIC RESULT linked)
    if(NOT linked EQUAL 0)
        # A file system without links: everything builds, only wrong includes go unnoticed.
        set(root "${PROJECT_SOURCE_DIR}/src")
    endif()

    add_library(rulemesh_${layer} STATIC ${arg_SOURCES})
    add_library(rulemesh::${layer} ALIAS rulemesh_${layer})
    target_compile_features(rulemesh_${layer} PUBLIC cxx_std_20)
    target_include_directories(rulemesh_${layer} PUBLIC
        "$<BUILD_INTERFACE:${root}>"
        "$<INSTALL_INTERFACE:${RULEMESH_INSTALL_INCLUDEDIR}>")
    # A host may put the control into a shared library or a plugin, as our own for Qt Designer does.
    set_target_properties(rulemesh_${layer} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    list(TRANSFORM arg_BELOW PREPEND rulemesh_)
    target_link_libraries(rulemesh_${layer} PUBLIC ${arg_BELOW} PRIVATE $<BUILD_INTERFACE:rulemesh_options>)
endfunction()

# A test program that ctest and `./test` run. It leaves its counts in <build>/results for `./test` to add up.
function(rulemesh_register_test program)
    add_test(NAME ${program}
        COMMAND ${program} --gtest_brief=1 "--gtest_output=xml:${PROJECT_BINARY_DIR}/results/${program}.xml")
endfunction()

# The tests of one folder of src/ as one program:
#
#   rulemesh_add_tests(script keywords_test.cpp ...)
#
# Tests of a folder that is no layer see the designer whole.
function(rulemesh_add_tests folder)
    list(TRANSFORM ARGN PREPEND "${folder}/")
    add_executable(${folder}_test ${ARGN})
    target_include_directories(${folder}_test PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${folder}_test PRIVATE rulemesh_samples)
    set(tested rulemesh)
    if(TARGET rulemesh_${folder})
        set(tested rulemesh_${folder})
    endif()
    target_link_libraries(${folder}_test PRIVATE ${tested} rulemesh_options GTest::gmock GTest::gtest_main)
    rulemesh_register_test(${folder}_test)
endfunction()
