# What is installed, and the Debian package that is made of it.
include(GNUInstallDirs)

set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(programs zelkorctl)
if(TARGET zelkor)
  list(APPEND programs zelkor zelkor-home)
endif()
install(TARGETS ${programs} RUNTIME)

# Manual pages and completion come from the programs themselves.
set(documents ${CMAKE_BINARY_DIR}/documents)
file(MAKE_DIRECTORY ${documents})
add_custom_command(OUTPUT ${documents}/zelkorctl.1.scd ${documents}/completion
  COMMAND zelkorctl --help-scdoc > ${documents}/zelkorctl.1.scd
  COMMAND zelkorctl --help-bash > ${documents}/completion
  DEPENDS zelkorctl VERBATIM)
set(written ${documents}/completion)
if(TARGET zelkor-home)
  add_custom_command(OUTPUT ${documents}/zelkor-home.1.scd ${documents}/zelkor-home.completion
    COMMAND zelkor-home --help-scdoc > ${documents}/zelkor-home.1.scd
    COMMAND zelkor-home --help-bash > ${documents}/zelkor-home.completion
    DEPENDS zelkor-home VERBATIM)
  list(APPEND written ${documents}/zelkor-home.completion)
  install(FILES ${documents}/zelkor-home.completion DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME zelkor-home)
  # The menu of the desktop finds it by these.
  install(FILES packaging/zelkor-home.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/zelkor.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
find_program(SCDOC scdoc)
if(SCDOC)
  function(manual_page program source)
    add_custom_command(OUTPUT ${documents}/${program}.1.gz
      COMMAND ${PROJECT_SOURCE_DIR}/packaging/manual-page ${source} ${documents}/${program}.1.gz
      DEPENDS ${source} ${PROJECT_SOURCE_DIR}/packaging/manual-page VERBATIM)
  endfunction()
  manual_page(zelkorctl ${documents}/zelkorctl.1.scd)
  manual_page(zelkor ${PROJECT_SOURCE_DIR}/packaging/zelkor.1.scd)
  if(TARGET zelkor-home)
    manual_page(zelkor-home ${documents}/zelkor-home.1.scd)
  endif()
  foreach(program IN LISTS programs)
    list(APPEND written ${documents}/${program}.1.gz)
    install(FILES ${documents}/${program}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  endforeach()
endif()

foreach(text docs/user-guide.md docs/deployment.md packaging/changelog)
  get_filename_component(name ${text} NAME)
  add_custom_command(OUTPUT ${documents}/${name}.gz
    COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/${text} > ${documents}/${name}.gz
    DEPENDS ${PROJECT_SOURCE_DIR}/${text} VERBATIM)
  list(APPEND written ${documents}/${name}.gz)
  install(FILES ${documents}/${name}.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zelkor)
endforeach()
add_custom_target(documents ALL DEPENDS ${written})
# The guide as the screens open it: what lies with the documents is packed.
install(FILES docs/user-guide.md DESTINATION ${CMAKE_INSTALL_DATADIR}/zelkor)

install(FILES ${documents}/completion DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zelkorctl)
install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zelkor)
install(FILES data/sample-register.csv DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zelkor/examples)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelkor)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
  WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Zelkor maintainers <maintainers@zelkor.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no library says: the font of the screens and of paper, and the texts of the window system's own dialogs.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-noto-cjk, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "postgresql-client")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "fixed-assets module of a Chinese double-entry accounting suite")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Zelkor keeps a card for every asset of an account set and every change to it,
computes the month's depreciation, prepares the ledger's voucher entries,
closes the month and shows the registers and ledgers of a fixed-asset system.
Account sets are SQLite files or lie on a PostgreSQL server. The package holds
the module and its administrator's tool.")
include(CPack)
