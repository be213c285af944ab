# Run by CPack when the package is made. It takes a library one folder below /usr/lib for one of the system's and has
# ldconfig run at installation and removal; the property library is loaded by its path, so those scripts go.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(tree ${package}.tree)
    file(REMOVE_RECURSE ${tree})
    execute_process(COMMAND dpkg-deb --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
    execute_process(COMMAND dpkg-deb --root-owner-group --build ${tree} ${package}
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE ${tree})
endforeach()
