# QML modules. Their files lie below qrc:/qt/qml, where the engine finds them by name.

# What Qt generates for a module is not ours to mend.
function(brell_quiet_generated target)
  get_target_property(binary ${target} BINARY_DIR)
  get_target_property(sources ${target} SOURCES)
  foreach(source ${sources})
    if(source MATCHES "_qmltyperegistrations\\.cpp$|\\.rcc/|qmlcache|_init\\.cpp$")
      set_source_files_properties(${source} TARGET_DIRECTORY ${target} PROPERTIES
          COMPILE_OPTIONS "-w" SKIP_PRECOMPILE_HEADERS ON)
    endif()
  endforeach()
endfunction()

# brell_qml_module(desk_models URI TarnwickBrell.Models SOURCES ... [QML ...] [RESOURCES ...] [USES ...]
#                  [IMPORTS ...])
# A static library with a QML module of the same build folder name; each folder of its headers is
# searched by the registration code, which knows headers by file name only.
function(brell_qml_module name)
  cmake_parse_arguments(M "" "URI" "SOURCES;QML;RESOURCES;USES;IMPORTS" ${ARGN})
  qt_add_library(${name} STATIC)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  string(REPLACE "." "/" path ${M_URI})
  qt_add_qml_module(${name}
    URI ${M_URI}
    VERSION 1.0
    RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/qml/${path}"
    SOURCES ${M_SOURCES}
    QML_FILES ${M_QML}
    RESOURCES ${M_RESOURCES}
    IMPORTS ${M_IMPORTS}
    IMPORT_PATH "${CMAKE_BINARY_DIR}/qml")
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}")
  foreach(source ${M_SOURCES})
    get_filename_component(folder ${source} DIRECTORY)
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
  endforeach()
  target_link_libraries(${name} PUBLIC ${M_USES} Qt6::Quick PRIVATE Boost::headers)
  brell_use_qt(${name})
  brell_quiet_generated(${name})
endfunction()
