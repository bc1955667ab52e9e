# What `cmake --install` puts into the folder for users; tools/package makes archives of it. Without the search paths of the
# build: on a user's machine the loader finds Python as the package's README says.
install(TARGETS Orvane OrvaneOperation LIBRARY DESTINATION .)
install(TARGETS orvane RUNTIME DESTINATION .)
install(DIRECTORY examples DESTINATION .)
install(FILES LICENSE CHANGELOG.md DESTINATION .)
install(FILES docs/commands.md docs/names.md docs/package.md docs/state-file.md DESTINATION docs)
if(WIN32)
    install(FILES tools/package/README-windows.md DESTINATION . RENAME README.md)
else()
    install(FILES tools/package/README-linux.md DESTINATION . RENAME README.md)
endif()
