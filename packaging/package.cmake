# What is installed where, and the Debian package: build everything, then run `cpack -G DEB` in the build directory.

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(packed ${PROJECT_BINARY_DIR}/packaging)
set(QUORVANE_PACKAGE_REVISION 1)

# quorvane_install_gzipped(SOURCE NAME DIRECTORY): installs SOURCE as DIRECTORY/NAME.gz, the same bytes at every build.
function(quorvane_install_gzipped source name directory)
  add_custom_command(OUTPUT ${packed}/${name}.gz
    COMMAND ${CMAKE_COMMAND} -E copy ${source} ${packed}/gzip/${name}
    COMMAND ${GZIP_PROGRAM} -9nf ${packed}/gzip/${name}
    COMMAND ${CMAKE_COMMAND} -E rename ${packed}/gzip/${name}.gz ${packed}/${name}.gz
    DEPENDS ${source} VERBATIM)
  set_property(GLOBAL APPEND PROPERTY QUORVANE_GZIPPED ${packed}/${name}.gz)
  install(FILES ${packed}/${name}.gz DESTINATION ${directory})
endfunction()

# The programs find ../share/quorvane, as seen from their own directory.
install(TARGETS quorvane-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS ${PROJECT_SOURCE_DIR}/cli/quorvane-live DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/app/Quorvane.hlp DESTINATION ${CMAKE_INSTALL_DATADIR}/quorvane)
set(completions ${PROJECT_BINARY_DIR}/completions)
install(FILES ${completions}/quorvane-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${completions}/_quorvane-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${completions}/quorvane-cli.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
if(TARGET default_lexicon)
  install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/words.lex DESTINATION ${CMAKE_INSTALL_DATADIR}/quorvane)
endif()
if(TARGET quorvane)
  install(TARGETS quorvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${packaging}/quorvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${packaging}/org.example.quorvane.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${packaging}/quorvane.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
# The compiler's name in each program, which stripping leaves.
foreach(program quorvane-cli quorvane)
  if(TARGET ${program} AND CMAKE_OBJCOPY)
    install(CODE "execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --remove-section=.comment
      \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/${program}\")")
  endif()
endforeach()
install(FILES ${packaging}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quorvane)
install(FILES ${packaging}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME quorvane)

find_program(GZIP_PROGRAM gzip)
if(GZIP_PROGRAM)
  file(MAKE_DIRECTORY ${packed}/gzip)
  configure_file(${packaging}/changelog.Debian ${packed}/changelog.Debian @ONLY)
  quorvane_install_gzipped(${packaging}/quorvane-cli.1 quorvane-cli.1 ${CMAKE_INSTALL_MANDIR}/man1)
  quorvane_install_gzipped(${packaging}/quorvane-live.1 quorvane-live.1 ${CMAKE_INSTALL_MANDIR}/man1)
  if(TARGET quorvane)
    quorvane_install_gzipped(${packaging}/quorvane.1 quorvane.1 ${CMAKE_INSTALL_MANDIR}/man1)
  endif()
  quorvane_install_gzipped(${packed}/changelog.Debian changelog.Debian ${CMAKE_INSTALL_DATADIR}/doc/quorvane)
  get_property(gzipped GLOBAL PROPERTY QUORVANE_GZIPPED)
  add_custom_target(gzipped_documents ALL DEPENDS ${gzipped})
else()
  message(WARNING "No gzip: man pages and changelog are not installed")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorvane)
set(CPACK_PACKAGE_VENDOR "The Quorvane developers")
set(CPACK_PACKAGE_CONTACT "The Quorvane developers <maintainers@example.org>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_HOMEPAGE_URL https://example.org/quorvane)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "find words for word games and puzzles")
set(CPACK_PACKAGE_DESCRIPTION
"Quorvane lists every word of a lexicon that fits a pattern of letters and
wildcards. It finds full and exact-length anagrams, palindromes, words made of
a rack of tiles, words with given letters or letter sequences, and random
words. The words can be sorted, counted, saved, printed in columns and looked
up in an on-line dictionary.

The package brings an English lexicon of about 280,000 words; others, of up to
two million words, can be made of plain word lists.

Besides the window (quorvane) there is a command line (quorvane-cli) with the
same searches for scripts.")
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64" AND NOT QUORVANE_PLAIN)
  string(APPEND CPACK_PACKAGE_DESCRIPTION "\n\nIt needs a processor with SSE4.2 (x86-64-v2).")
endif()
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${QUORVANE_PACKAGE_REVISION})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS fzf)  # For quorvane-live.
if(TARGET quorvane)
  # The icon of the window, the browser for the look-up, printing on printers, desktops on Wayland; the desktop's own
  # dialogs.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libqt6svg6, xdg-utils, cups-client, qt6-wayland")
  string(PREPEND CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-gtk-platformtheme, ")
endif()
include(CPack)
