# Runs before packing: adds the files that only the package contains, and compresses those that Debian requires to be
# compressed. gzip's -n omits the time, so that the same files give the same package.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(documents ${share}/doc/vantorin)
file(COPY ${CPACK_VANTORIN_DOCUMENTS} DESTINATION ${documents})
execute_process(
    COMMAND gzip -9n ${documents}/changelog ${share}/man/man1/vantorin.1
    COMMAND_ERROR_IS_FATAL ANY)
