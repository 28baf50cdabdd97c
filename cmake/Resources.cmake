# The resources that the program looks for stand in <prefix>/share/kalvora/resources, found relative to the executable.
# The external tools are links to the system's; a tool that is missing leaves a dangling link, and the program then names
# the package to install.
set(KALVORA_RESOURCES ${CMAKE_BINARY_DIR}/share/kalvora/resources)
file(MAKE_DIRECTORY ${KALVORA_RESOURCES})

foreach(tool ffmpeg dvdauthor mkisofs)
    find_program(KALVORA_TOOL_${tool} ${tool})
    if(KALVORA_TOOL_${tool})
        set(target ${KALVORA_TOOL_${tool}})
    else()
        set(target /usr/bin/${tool})
    endif()
    file(CREATE_LINK ${target} ${KALVORA_RESOURCES}/${tool} SYMBOLIC)
endforeach()

foreach(file fonts.conf hw_test.mov)
    configure_file(${CMAKE_SOURCE_DIR}/resources/${file} ${KALVORA_RESOURCES}/${file} COPYONLY)
endforeach()

install(DIRECTORY ${KALVORA_RESOURCES} DESTINATION ${CMAKE_INSTALL_DATADIR}/kalvora)

# The languages that the program speaks besides English.
find_program(KALVORA_LRELEASE lrelease PATHS /usr/lib/qt6/bin)
file(GLOB translations CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/translations/*.ts)
if(KALVORA_LRELEASE)
    foreach(translation ${translations})
        get_filename_component(name ${translation} NAME_WE)
        set(compiled ${KALVORA_RESOURCES}/translations/${name}.qm)
        add_custom_command(OUTPUT ${compiled} DEPENDS ${translation}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${KALVORA_RESOURCES}/translations
            COMMAND ${KALVORA_LRELEASE} -silent ${translation} -qm ${compiled})
        list(APPEND compiled_translations ${compiled})
    endforeach()
    add_custom_target(kv_translations ALL DEPENDS ${compiled_translations})
endif()
