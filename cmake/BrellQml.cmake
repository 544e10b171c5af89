# QML modules. Their files lie below qrc:/qt/qml, where an engine finds them by name.

# Where the modules are laid out for qmllint and for each other.
set(BRELL_QML_DIRECTORY "${CMAKE_BINARY_DIR}/qml")

# brell_qml_module(desk_controls URI TarnwickBrell.Controls [SOURCES ...] [QML ...] [SINGLETONS ...]
#   [FILES ...] [IMPORTS ...] [USES ...] [PRIVATELY_USES ...])
# A static library with a QML module in its resources, without a plugin: a program that uses it
# names its registration function, see InstallControls.cpp. FILES are resources beside the QML files.
function(brell_qml_module name)
  cmake_parse_arguments(M "" "URI" "SOURCES;QML;SINGLETONS;FILES;IMPORTS;USES;PRIVATELY_USES" ${ARGN})
  set_source_files_properties(${M_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
  string(REPLACE "." "/" folder "${M_URI}")
  brell_library(${name} QT SOURCES ${M_SOURCES} USES ${M_USES} Qt6::Quick PRIVATELY_USES ${M_PRIVATELY_USES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  # The registration code includes headers by their file names only.
  foreach(source ${M_SOURCES})
    get_filename_component(part ${source} DIRECTORY)
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${part}")
  endforeach()
  # Compiled QML starts sooner, and takes a compiler run for each file: for what ships only.
  if(CMAKE_BUILD_TYPE STREQUAL "Release")
    set(cache "")
  else()
    set(cache NO_CACHEGEN)
  endif()
  qt_add_qml_module(${name} ${cache}
    URI ${M_URI} VERSION 1.0 NO_PLUGIN RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY "${BRELL_QML_DIRECTORY}/${folder}" IMPORT_PATH "${BRELL_QML_DIRECTORY}"
    IMPORTS ${M_IMPORTS} QML_FILES ${M_SINGLETONS} ${M_QML} RESOURCES ${M_FILES})
  # What Qt writes for QML files shadows names, and needs none of our precompiled headers.
  get_target_property(sources ${name} SOURCES)
  list(FILTER sources INCLUDE REGEX "qmlcache|qmltyperegistrations")
  set_source_files_properties(${sources} PROPERTIES
      COMPILE_OPTIONS "-w" SKIP_PRECOMPILE_HEADERS ON)
endfunction()
