# SPDX-License-Identifier: MIT
# The time that CPack gives the files of a package: SOURCE_DATE_EPOCH, as packagers set it, or else that of the revision.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git -C ${CPACK_PAGESLICE_SOURCE} log -1 --format=%ct OUTPUT_VARIABLE seconds
    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
  if(NOT failed)
    set(ENV{SOURCE_DATE_EPOCH} ${seconds})
  endif()
endif()
set(ENV{TZ} UTC) # a zip holds local times
