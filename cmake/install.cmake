# What is installed, and the Debian package. The programs look for bridge.pl from their own place, so an installed tree
# may be moved.
set(share ${CMAKE_INSTALL_DATADIR})
install(TARGETS brindle brindle-batch RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY examples/ DESTINATION ${share}/brindle/examples PATTERN "*.pl" EXCLUDE)
install(DIRECTORY examples/ DESTINATION ${share}/brindle/examples USE_SOURCE_PERMISSIONS FILES_MATCHING PATTERN "*.pl")
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs FILES_MATCHING PATTERN "*.md" PATTERN "*.png")

install(FILES packaging/completion/brindle-batch.bash DESTINATION ${share}/bash-completion/completions
        RENAME brindle-batch)
install(FILES packaging/icon/io.brindle.Workbench.svg DESTINATION ${share}/icons/hicolor/scalable/apps)
foreach(size 32 48 128)
  install(FILES packaging/icon/${size}.png DESTINATION ${share}/icons/hicolor/${size}x${size}/apps
          RENAME io.brindle.Workbench.png)
endforeach()
install(FILES packaging/desktop/io.brindle.Workbench.metainfo.xml DESTINATION ${share}/metainfo)
install(FILES packaging/desktop/io.brindle.Workbench.xml DESTINATION ${share}/mime/packages)

# Manual pages, zsh completion and the desktop file depend on the prefix, which is known only when installing.
install(CODE "set(packaging \"${CMAKE_SOURCE_DIR}/packaging\")\nset(work \"${CMAKE_BINARY_DIR}\")")
install(SCRIPT cmake/install_for_prefix.cmake)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brindle)
set(CPACK_PACKAGE_VENDOR "The developers of BRINDLE")
set(CPACK_PACKAGE_CONTACT "The developers of BRINDLE <brindle@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "workbench for annotating treebanks with meaning")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "BRINDLE opens a corpus of up to a million bracketed syntax trees at once,
shows each tree, proposes semantic annotations from the trees already checked,
asks a Prolog system what a formula means, and never loses an edit.
.
brindle-batch does the same work from a shell.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "swi-prolog-nox, fonts-dejavu-core, fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-dejavu-extra, qt6-wayland")
include(CPack)
