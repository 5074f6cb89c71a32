# Debian packages: zoka (the console tool) and zoka-basic (the window application, where it is
# built), made by `./dev package`.
include(GNUInstallDirs)
if(TARGET zoka)
  install(TARGETS zoka RUNTIME COMPONENT zoka)
endif()
if(TARGET zoka-basic)
  install(TARGETS zoka-basic RUNTIME COMPONENT zoka-basic)
endif()
foreach(component zoka zoka-basic)
  install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${component}
          COMPONENT ${component})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Zoka-BASIC developers <zoka-basic@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Line-numbered BASIC of Japanese personal computers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL zoka)
if(TARGET zoka-basic)
  list(APPEND CPACK_COMPONENTS_ALL zoka-basic)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_ZOKA_PACKAGE_NAME zoka)
set(CPACK_DEBIAN_ZOKA_PACKAGE_RECOMMENDS
    "fonts-unifont, fonts-ipafont-gothic, timgm6mb-soundfont")
set(CPACK_DEBIAN_ZOKA-BASIC_PACKAGE_NAME zoka-basic)
set(CPACK_DEBIAN_ZOKA-BASIC_PACKAGE_RECOMMENDS
    "fonts-unifont, fonts-ipafont-gothic, timgm6mb-soundfont, qt6-wayland")
include(CPack)
