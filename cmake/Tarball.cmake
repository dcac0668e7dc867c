# Run by cpack: packs what was installed for the tarball, which works wherever it is unpacked.
cmake_policy(VERSION 3.25)
set(tarball "${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.tar.gz")
set(top "${CPACK_TEMPORARY_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}")
configure_file("${CPACK_TRELVAN_SOURCE}/resources/tarball/README.txt" "${top}/README.txt" @ONLY)
file(CHMOD "${top}/README.txt" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
execute_process(
  COMMAND tar --sort=name --mode=u=rwX,go=rX --owner=0 --group=0 --numeric-owner
    --mtime=@$ENV{SOURCE_DATE_EPOCH} --format=gnu
    -C "${CPACK_TEMPORARY_DIRECTORY}" -cf - "${CPACK_PACKAGE_FILE_NAME}"
  COMMAND gzip -9n
  OUTPUT_FILE "${tarball}" COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES "${tarball}")
