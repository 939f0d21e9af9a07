# Optimised builds are hardened as the distribution hardens its own programs, where it says how (Debian and its kin).

find_program(DPKG_BUILDFLAGS_PROGRAM dpkg-buildflags)
mark_as_advanced(DPKG_BUILDFLAGS_PROGRAM)
if(DPKG_BUILDFLAGS_PROGRAM AND CMAKE_BUILD_TYPE MATCHES "^Rel" AND NOT QUORVANE_SANITIZE)
  foreach(kind CPPFLAGS CXXFLAGS LDFLAGS)
    execute_process(
      COMMAND ${CMAKE_COMMAND} -E env "DEB_BUILD_MAINT_OPTIONS=hardening=+all reproducible=-all optimize=-all"
              ${DPKG_BUILDFLAGS_PROGRAM} --get ${kind}
      OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    # How far to optimise and what to keep for a debugger is the build type's.
    list(FILTER flags EXCLUDE REGEX "^-[gO]")
    set(hardening_${kind} ${flags})
  endforeach()
  add_compile_options(${hardening_CPPFLAGS} ${hardening_CXXFLAGS})
  add_link_options(${hardening_LDFLAGS})
endif()
