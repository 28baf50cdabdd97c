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
