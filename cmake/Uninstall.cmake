# Removes the files of the last installation, and the folders of our own name that are empty then. Folders that
# others use too (bin, lib, include) stay.
#
#   cmake -D MANIFEST=<build>/install_manifest.txt -P Uninstall.cmake
cmake_minimum_required(VERSION 3.25)

if(NOT EXISTS ${MANIFEST})
  message(FATAL_ERROR "nothing is installed from here: there is no ${MANIFEST}")
endif()
file(STRINGS ${MANIFEST} files)
set(folders)
foreach(file ${files})
  set(file $ENV{DESTDIR}${file})
  message(STATUS "Removing ${file}")
  file(REMOVE ${file})
  if(EXISTS ${file} OR IS_SYMLINK ${file})
    message(FATAL_ERROR "cannot be removed: ${file}")
  endif()
  cmake_path(GET file PARENT_PATH folder)
  while(folder MATCHES "/ZelXml(/|$)")
    list(APPEND folders ${folder})
    cmake_path(GET folder PARENT_PATH folder)
  endwhile()
endforeach()
# The deepest first, so that each is empty when its turn comes.
list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)
foreach(folder ${folders})
  file(GLOB left LIST_DIRECTORIES true ${folder}/*)
  if(NOT left)
    file(REMOVE_RECURSE ${folder})
  endif()
endforeach()
file(REMOVE ${MANIFEST})
