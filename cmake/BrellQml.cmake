# QML modules. Their files lie below qrc:/qt/qml, where an engine finds them by name.

# Where the modules are laid out for qmllint and for each other.
set(BRELL_QML_DIRECTORY "${CMAKE_BINARY_DIR}/qml")

# brell_qml_module(app_controls URI TarnwickBrell.Controls [SINGLETONS ...] [FILES ...] [IMPORTS ...]
#   [USES ...] [PRIVATELY_USES ...])
# All source and QML files of the folder are the module's; SINGLETONS names those that are one.
# A static library with a QML module in its resources, without a plugin: a program that uses it
# names its registration function, see InstallControls.cpp. FILES are resources beside the QML files.
function(brell_qml_module name)
  cmake_parse_arguments(M "" "URI" "SINGLETONS;FILES;IMPORTS;USES;PRIVATELY_USES" ${ARGN})
  brell_folder_sources(M_SOURCES)
  file(GLOB M_QML RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" CONFIGURE_DEPENDS *.qml)
  list(REMOVE_ITEM M_QML ${M_SINGLETONS})
  set_source_files_properties(${M_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
  string(REPLACE "." "/" folder "${M_URI}")
  brell_library(${name} QT SOURCES ${M_SOURCES} USES ${M_USES} Qt6::Quick PRIVATELY_USES ${M_PRIVATELY_USES})
  # The registration code includes headers by their file names only.
  foreach(source ${M_SOURCES})
    get_filename_component(part ${source} DIRECTORY)
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${part}")
  endforeach()
  # Not compiled ahead: Qt 6.4 makes C++ of some casts that no compiler takes, each file would be a
  # compiler run, and the window is there in half a second without.
  qt_add_qml_module(${name} NO_CACHEGEN
    URI ${M_URI} VERSION 1.0 NO_PLUGIN RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY "${BRELL_QML_DIRECTORY}/${folder}" IMPORT_PATH "${BRELL_QML_DIRECTORY}"
    IMPORTS ${M_IMPORTS} QML_FILES ${M_SINGLETONS} ${M_QML} RESOURCES ${M_FILES})
  # What Qt writes for QML files shadows names, and needs none of our precompiled headers.
  get_target_property(sources ${name} SOURCES)
  list(FILTER sources INCLUDE REGEX "qmlcache|qmltyperegistrations")
  set_source_files_properties(${sources} PROPERTIES
      COMPILE_OPTIONS "-w" SKIP_PRECOMPILE_HEADERS ON)
endfunction()
