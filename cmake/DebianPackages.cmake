# Run by cpack when Debian's packages are there: packs them again with dpkg's own program. cpack
# counts folders into their sizes, which are others on each kind of disk, and takes over the umask.
cmake_policy(VERSION 3.25)
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(tree "${package}.tree")
  execute_process(
    COMMAND bash -euc [[
      umask 022
      dpkg-deb -R "$0" "$1"
      # As Debian counts it: files in whole KiB, and one for each folder.
      size=$(cd "$1" && find . -path ./DEBIAN -prune -o -printf '%y %s\n' |
        awk '$1 == "f" { size += int(($2 + 1023) / 1024); next } { size += 1 } END { print size }')
      sed -i "s/^Installed-Size: .*/Installed-Size: $size/" "$1/DEBIAN/control"
      dpkg-deb --root-owner-group -b "$1" "$0"
      rm -rf "$1"]] "${package}" "${tree}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()
