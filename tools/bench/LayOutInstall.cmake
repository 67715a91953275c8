# An install folder as a user has it at the first start, apart from the one that developers change by using it. The
# folder that is shown first is pinned, so that nobody's own pictures are counted.
file(REMOVE_RECURSE "${INSTALL}")
include("${FIRST_RUN}/LayOutInstallFolder.cmake")
file(COPY "${BIN}/babel" "${BIN}/samples" DESTINATION "${INSTALL}")
file(APPEND "${INSTALL}/cache/Tagwright.ini" "\n[Nodes]\n1=${INSTALL}/samples\n")
