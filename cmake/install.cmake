# Where everything goes (GNUInstallDirs), in three parts: the game, its data, the tools. CPack makes a Debian package of
# each. The programs look for the data by its place beside their own, so an installed tree can be moved.
include(GNUInstallDirs)

set(share ${CMAKE_INSTALL_DATADIR})
install(DIRECTORY assets/data/ DESTINATION ${share}/tarnveil/data COMPONENT data)
install(FILES docs/AUTHORING.md DESTINATION ${CMAKE_INSTALL_DOCDIR}-tools COMPONENT tools)
install(DIRECTORY docs/schema DESTINATION ${CMAKE_INSTALL_DOCDIR}-tools COMPONENT tools)
if(TARGET tarnveil)
  install(FILES README.md README.ja.md CHANGELOG.md CREDITS.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT game)
  install(FILES packaging/tarnveil.desktop DESTINATION ${share}/applications COMPONENT game)
  install(FILES packaging/tarnveil.metainfo.xml DESTINATION ${share}/metainfo COMPONENT game
          RENAME net.tarnveil.Tarnveil.metainfo.xml)
  install(FILES packaging/tarnveil-mime.xml DESTINATION ${share}/mime/packages COMPONENT game RENAME tarnveil.xml)
  foreach(size 16 24 32 48 64 128 256 512)
    install(FILES packaging/icons/tarnveil-${size}.png COMPONENT game RENAME tarnveil.png
            DESTINATION ${share}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  install(FILES packaging/icons/tarnveil.svg DESTINATION ${share}/icons/hicolor/scalable/apps COMPONENT game)
endif()

set(CPACK_PACKAGE_VENDOR "Tarnveil")
set(CPACK_PACKAGE_CONTACT "The Tarnveil developers <developers@tarnveil.net>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_SOURCE_GENERATOR "")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/deb/papers.cmake)
set(CPACK_TARNVEIL_SOURCE ${CMAKE_SOURCE_DIR})
set(CPACK_COMPONENTS_ALL game data tools)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

# Without the SoundFont there is no music, without a Japanese face no menu can be read.
set(CPACK_DEBIAN_GAME_PACKAGE_NAME tarnveil)
set(CPACK_DEBIAN_GAME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_GAME_PACKAGE_DEPENDS "tarnveil-data (= ${PROJECT_VERSION}), timgm6mb-soundfont, \
fonts-vlgothic | fonts-ipafont-gothic | fonts-noto-cjk")
set(CPACK_DEBIAN_GAME_PACKAGE_RECOMMENDS qt6-wayland)
set(CPACK_DEBIAN_GAME_PACKAGE_SUGGESTS tarnveil-tools)
set(CPACK_COMPONENT_GAME_DESCRIPTION "One ship, one energy bar and three stages, each with a boss at its end.
Switch between a forward twin shot and a four-way spread, choose among three
difficulties, practise a single stage or go for the score attack.

For authors it brings three editors: for the enemies of a stage, for their
kinds and for their movements.")

set(CPACK_DEBIAN_DATA_PACKAGE_NAME tarnveil-data)
set(CPACK_DEBIAN_DATA_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DATA_PACKAGE_RECOMMENDS tarnveil)
set(CPACK_COMPONENT_DATA_DESCRIPTION "One ship, one energy bar and three stages, each with a boss at its end.

This package holds the tables of the stages, the music and the sounds.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME tarnveil-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "tarnveil-data (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "One ship, one energy bar and three stages, each with a boss at its end.

tarnveil-tables builds the tables of the stages from Lua sources and checks
them; tarnveil-sim plays whole games without a window, by pilots or from
recordings, and reports on them.")
include(CPack)
