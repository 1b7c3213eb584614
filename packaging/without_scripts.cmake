# CPack adds scripts that call ldconfig to the library's package. Debian wants a trigger instead, which the package
# has, so this repacks every package without the scripts. CPack runs it after building the packages.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(unpacked ${package}.unpacked)
    execute_process(COMMAND dpkg-deb --raw-extract ${package} ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE ${unpacked}/DEBIAN/postinst ${unpacked}/DEBIAN/postrm)
    execute_process(COMMAND dpkg-deb --root-owner-group --build ${unpacked} ${package}
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE ${unpacked})
endforeach()
