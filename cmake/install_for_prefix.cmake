# Runs at install time, with `packaging` (the folder), `work` (a folder for made files) and CMAKE_INSTALL_PREFIX.
# Below /usr things are as Debian wants them: compressed manual pages and changelog, its own folder for zsh.
set(share ${CMAKE_INSTALL_PREFIX}/share)
set(pages ${packaging}/man/brindle.1 ${packaging}/man/brindle-batch.1)
set(zsh ${share}/zsh/site-functions)

if(CMAKE_INSTALL_PREFIX STREQUAL /usr)
  set(zsh ${share}/zsh/vendor-completions)
  set(made ${work}/compressed)
  file(REMOVE_RECURSE ${made})
  file(MAKE_DIRECTORY ${made})
  file(COPY ${pages} ${packaging}/debian/changelog DESTINATION ${made})
  execute_process(COMMAND gzip -9n brindle.1 brindle-batch.1 changelog WORKING_DIRECTORY ${made}
                  COMMAND_ERROR_IS_FATAL ANY)
  set(pages ${made}/brindle.1.gz ${made}/brindle-batch.1.gz)
  file(INSTALL ${made}/changelog.gz ${packaging}/debian/copyright DESTINATION ${share}/doc/brindle)
endif()

file(INSTALL ${pages} DESTINATION ${share}/man/man1)
file(INSTALL ${packaging}/completion/_brindle-batch DESTINATION ${zsh})
configure_file(${packaging}/desktop/io.brindle.Workbench.desktop.in ${work}/io.brindle.Workbench.desktop @ONLY)
file(INSTALL ${work}/io.brindle.Workbench.desktop DESTINATION ${share}/applications)
