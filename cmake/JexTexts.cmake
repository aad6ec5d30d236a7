# The texts of windows in other languages: translations/NAME_LANGUAGE.ts, one NAME for what is linked into the
# plug-in and one for the workbench. `./dev translate` brings these files up to date with the sources.
if(TARGET Qt5::qmake)
  get_target_property(JEX_QMAKE Qt5::qmake IMPORTED_LOCATION)
  get_filename_component(JEX_QT_TOOLS ${JEX_QMAKE} DIRECTORY)
endif()
find_program(JEX_LRELEASE lrelease HINTS ${JEX_QT_TOOLS} REQUIRED)
find_program(JEX_LUPDATE lupdate HINTS ${JEX_QT_TOOLS} REQUIRED)

add_custom_target(texts VERBATIM COMMAND ${CMAKE_COMMAND} -DLUPDATE=${JEX_LUPDATE} -DROOT=${PROJECT_SOURCE_DIR}
  -P ${PROJECT_SOURCE_DIR}/cmake/UpdateTexts.cmake)

# jex_texts(TARGET NAME): compiles the texts into the target, as ":/NAME/texts/NAME_LANGUAGE.qm".
function(jex_texts target name)
  set(compiled)
  set(entries)
  file(GLOB files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/translations/${name}_*.ts)
  foreach(file ${files})
    get_filename_component(base ${file} NAME_WE)
    add_custom_command(OUTPUT ${base}.qm DEPENDS ${file}
      COMMAND ${JEX_LRELEASE} -silent ${file} -qm ${base}.qm)
    list(APPEND compiled ${CMAKE_CURRENT_BINARY_DIR}/${base}.qm)
    string(APPEND entries "<file>${base}.qm</file>")
  endforeach()
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}_texts.qrc)
  file(WRITE ${list} "<RCC><qresource prefix=\"/${name}/texts\">${entries}</qresource></RCC>\n")
  add_custom_command(OUTPUT ${name}_texts.cpp DEPENDS ${list} ${compiled}
    COMMAND Qt${JEX_QT_MAJOR}::rcc -name ${name}_texts ${list} -o ${name}_texts.cpp)
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${name}_texts.cpp PROPERTIES SKIP_AUTOGEN ON)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}_texts.cpp)
endfunction()
