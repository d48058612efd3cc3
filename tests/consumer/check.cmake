# Runs the lines of the README as they stand there: installs the library, builds the README's program against it
# in both ways, runs that on the example study, and uninstalls.
#
#   cmake -D STEP=<step> -D BINARY_DIR=<build> -D SOURCE_DIR=<project> -D WORK=<dir> -D CXX=<compiler>
#         [-D FLAGS=...] -P check.cmake
#
# The library is built in a copy of the sources. Its compiler is a stand-in that takes each object file from the
# build under test, where it has been compiled already, and hands all else to CXX with FLAGS.
cmake_minimum_required(VERSION 3.25)
file(READ ${SOURCE_DIR}/README.md readme)

# The block of the README in this language that has `text` in it.
function(readme_block result language text)
  if(NOT readme MATCHES "```${language}\n([^`]*${text}[^`]*)```")
    message(FATAL_ERROR "the README shows no ${language} with ${text}")
  endif()
  set(${result} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

# Runs lines in a shell in `dir`; ~ is `home`.
function(run_lines lines dir home)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env HOME=${home} PATH=${WORK}/bin:$ENV{PATH} CXX=${WORK}/bin/c++
                          CCACHE_DISABLE=1 --unset=CXXFLAGS --unset=LDFLAGS --unset=DESTDIR sh -ec "${lines}"
                  WORKING_DIRECTORY ${dir} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}):\n${lines}\n${output}")
  endif()
endfunction()

# Runs lines that build and run the program; what it saves and what it publishes must hold the new name.
function(run_program lines dir home)
  file(REMOVE_RECURSE ${dir})
  file(COPY ${SOURCE_DIR}/examples/cell/cell.xml DESTINATION ${dir})
  readme_block(program cpp "int main")
  file(WRITE ${dir}/rename.cpp "${program}")
  readme_block(project cmake "find_package")
  file(WRITE ${dir}/CMakeLists.txt "${project}")
  run_lines("${lines}" ${dir} ${home})
  foreach(saved renamed.xml changes.xml)
    file(READ ${dir}/${saved} text)
    if(NOT text MATCHES "<name>Left welder</name>")
      message(FATAL_ERROR "the new name is not in ${dir}/${saved}")
    endif()
  endforeach()
endfunction()

readme_block(packages sh "apt-get install")
readme_block(install sh "cmake --install")
readme_block(uninstall sh "uninstall")
readme_block(by_cmake sh "CMAKE_PREFIX_PATH")
readme_block(by_pkg_config sh "pkg-config --cflags")

if(STEP STREQUAL "install")
  file(STRINGS ${SOURCE_DIR}/cmake/debian-packages.txt rows REGEX "^[^#]")
  foreach(row ${rows})
    if(row MATCHES "^([^ ]+) +build ")
      set(package ${CMAKE_MATCH_1})
      string(REGEX REPLACE "[ \n]+" ";" words "${packages}")
      if(NOT package IN_LIST words)
        message(FATAL_ERROR "the README does not install ${package}")
      endif()
    endif()
  endforeach()

  file(REMOVE_RECURSE ${WORK})
  file(WRITE ${WORK}/bin/c++ "#!/bin/sh
case \" $* \" in *' -c '*)
  previous=
  for word; do
    if [ \"$previous\" = -o ] && [ -f '${BINARY_DIR}'/\"$word\" ]; then exec cp '${BINARY_DIR}'/\"$word\" \"$word\"; fi
    previous=$word
  done ;;
esac
case $* in *rename.cpp*) set -- \"$@\" -Wall -Wextra -Werror ;; esac
exec '${CXX}' \"$@\" ${FLAGS}
")
  file(CHMOD ${WORK}/bin/c++ PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  # The tests are not there: the lines must do without them.
  foreach(room CMakeLists.txt CMakePresets.json cmake contracts lib platform tools)
    file(COPY ${SOURCE_DIR}/${room} DESTINATION ${WORK}/source)
  endforeach()
  run_lines("${install}" ${WORK}/source ${WORK}/first)
  # Moved after the installation: nothing in the package may name where it was put first.
  file(MAKE_DIRECTORY ${WORK}/home)
  file(RENAME ${WORK}/first/zelxml ${WORK}/home/zelxml)
elseif(STEP STREQUAL "cmake")
  run_program("${by_cmake}" ${WORK}/cmake ${WORK}/home)
elseif(STEP STREQUAL "pkg-config")
  run_program("${by_pkg_config}" ${WORK}/pkg-config ${WORK}/home)
  string(REPLACE "--libs" "--libs --static" by_pkg_config "${by_pkg_config}")
  run_program("${by_pkg_config}" ${WORK}/pkg-config ${WORK}/home)
elseif(STEP STREQUAL "shared")
  string(REPLACE "-DZELXML_TESTS=OFF" "-DZELXML_TESTS=OFF -DBUILD_SHARED_LIBS=ON" install "${install}")
  run_lines("${install}" ${WORK}/source ${WORK}/shared)
  run_lines("~/zelxml/bin/zelstudy --version; test -e ~/zelxml/lib/libZelXml.so" ${WORK} ${WORK}/shared)
  run_program("${by_pkg_config}" ${WORK}/shared/pkg-config ${WORK}/shared)
  run_program("${by_cmake}" ${WORK}/shared/cmake ${WORK}/shared)
  file(WRITE ${WORK}/shared/zelxml/include/other.h "")
  run_lines("${uninstall}" ${WORK}/source ${WORK}/shared)
  file(GLOB_RECURSE left RELATIVE ${WORK}/shared/zelxml LIST_DIRECTORIES true ${WORK}/shared/zelxml/*)
  if(NOT left STREQUAL "bin;include;include/other.h;lib;lib/cmake;lib/pkgconfig")
    message(FATAL_ERROR "not uninstalled, or too much: ${left}")
  endif()
else()
  message(FATAL_ERROR "STEP is install, cmake, pkg-config or shared")
endif()
