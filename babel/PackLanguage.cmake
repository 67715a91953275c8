# Packs the files of LIST into the resource collection PACKED, and puts its check sum behind it. The first format of
# rcc carries no file times, so that the same sources give the same bytes.
get_filename_component(folder "${PACKED}" DIRECTORY)
file(MAKE_DIRECTORY "${folder}")
execute_process(COMMAND "${RCC}" --binary --format-version 1 --output "${PACKED}.new" "${LIST}"
                COMMAND_ERROR_IS_FATAL ANY)
file(SHA256 "${PACKED}.new" sum)
file(APPEND "${PACKED}.new" "\nsha256 ${sum}\n")
file(RENAME "${PACKED}.new" "${PACKED}")
