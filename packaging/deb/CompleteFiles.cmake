# SPDX-License-Identifier: GPL-3.0-or-later
# Run by cpack between installing the files and packing them: adds the documents that Debian's policy
# asks for, compresses them and the manual pages without a time, and gives every file the time of
# SOURCE_DATE_EPOCH when that is set.
set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX})
if(NOT IS_DIRECTORY ${root}/bin)
    message(FATAL_ERROR "No installed files in ${root}.")
endif()

set(documents ${root}/share/doc/veltrano)
file(MAKE_DIRECTORY ${documents})
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/copyright ${documents}/copyright)
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/changelog ${documents}/changelog.Debian)
file(GLOB texts ${root}/share/man/man?/*.? ${documents}/changelog.Debian)
execute_process(COMMAND gzip -9nf ${texts} COMMAND_ERROR_IS_FATAL ANY)

set(overrides ${root}/share/lintian/overrides)
file(MAKE_DIRECTORY ${overrides})
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${overrides}/veltrano)
file(CHMOD ${overrides}/veltrano ${documents}/copyright ${documents}/changelog.Debian.gz
    PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(GLOB programs ${root}/bin/*)
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${programs}
    COMMAND_ERROR_IS_FATAL ANY)

if(DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND find ${CPACK_TEMPORARY_INSTALL_DIRECTORY}
        -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} + COMMAND_ERROR_IS_FATAL ANY)
endif()
