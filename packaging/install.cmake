# SPDX-License-Identifier: GPL-3.0-or-later
# What `cmake --install` puts where beside the program, its module and its side files, and the Debian packages that
# `cpack` makes of it: kelvor, and kelvor-preview with the one module that needs the web engine.

install(FILES packaging/kelvor.desktop DESTINATION share/applications)
install(FILES packaging/local.kelvor.kelvor.metainfo.xml DESTINATION share/metainfo)
install(FILES src/qt/icons/kelvor.svg DESTINATION share/icons/hicolor/scalable/apps)
foreach(size 48 128 256)
  install(FILES packaging/icons/kelvor-${size}.png DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME kelvor.png)
endforeach()

# Without the time of its making a compressed file is the same whenever it is made.
function(install_compressed source name directory component)
  set(compressed ${PROJECT_BINARY_DIR}/packaging/${name}.gz)
  add_custom_command(OUTPUT ${compressed} DEPENDS ${source} VERBATIM
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/packaging
    COMMAND sh -c "gzip -9nc \"$1\" > \"$2\"" sh ${source} ${compressed})
  add_custom_target(packaging_${component}_${name} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${directory} COMPONENT ${component})
endfunction()

configure_file(packaging/kelvor.1 ${PROJECT_BINARY_DIR}/packaging/kelvor.1 @ONLY)
install_compressed(${PROJECT_BINARY_DIR}/packaging/kelvor.1 kelvor.1 share/man/man1 program)
foreach(package kelvor kelvor-preview)
  string(COMPARE EQUAL ${package} kelvor isMain)
  set(component preview)
  if(isMain)
    set(component program)
  endif()
  install(FILES packaging/copyright DESTINATION share/doc/${package} COMPONENT ${component})
  install_compressed(${PROJECT_SOURCE_DIR}/packaging/changelog changelog share/doc/${package} ${component})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL program)
if(TARGET kelvor_browser)
  list(APPEND CPACK_COMPONENTS_ALL preview)
endif()
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Kelvor developers <kelvor@kelvor.invalid>")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME kelvor)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION editors)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "editor for people who write web pages by hand
Many HTML, script and text files are open at once behind tabs, with every tag
in view. Commands put tags round the selection; assistants build links,
tables, images, forms and document heads; tools search and rewrite whole
trees of files. What is in a file stays as it is: bytes, line ends, encoding.")
# Plugins that no linker sees: the pictures of the buttons, and the formats that the Image Assistant shows.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "libqt6svg6, qt6-image-formats-plugins")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "kelvor-preview, xdg-utils")

set(CPACK_DEBIAN_PREVIEW_PACKAGE_NAME kelvor-preview)
set(CPACK_DEBIAN_PREVIEW_PACKAGE_SECTION editors)
set(CPACK_COMPONENT_PREVIEW_DESCRIPTION "preview of web pages in the editor Kelvor
Shows the page that is being edited beside its source, by the Qt web engine.
Kelvor runs without it and then has no preview of its own.")
set(CPACK_DEBIAN_PREVIEW_PACKAGE_DEPENDS "kelvor (= ${PROJECT_VERSION})")
include(CPack)
