# CPack gives the library's package scripts that call ldconfig. Debian wants a trigger in their place, which the
# package has; so it is packed again without them. Run by CPack when the packages are there.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(unpacked ${package}.unpacked)
    execute_process(COMMAND dpkg-deb --raw-extract ${package} ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE ${unpacked}/DEBIAN/postinst ${unpacked}/DEBIAN/postrm)
    execute_process(COMMAND dpkg-deb --root-owner-group --build ${unpacked} ${package}
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE ${unpacked})
endforeach()
