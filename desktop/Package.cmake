# The Debian package: `cmake --workflow --preset package`, or `cpack` in a build folder.
set(QUIB_MAINTAINER
    "Quib!Cards maintainers <quibcards@example.org>"
    CACHE STRING "Who answers for the package, as 'Name <address>'")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quibcards)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "${QUIB_MAINTAINER}")
set(CPACK_PACKAGE_VENDOR "Quib!Cards maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "learn words, facts and pictures with study cards")
set(CPACK_PACKAGE_DESCRIPTION
    "Quib!Cards shows study cards. Each side of a card has a text, a picture and a
sound. Stacks of up to 300 cards are stepped through, answered against the
clock, spelled, or answered by choosing among four; they can be typed in,
edited, searched and printed.

A topic has display fonts and key assignments of its own, so that letters
which the keyboard lacks can be typed all the same. Sample stacks and a help
for every window are included.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/package")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Made by the project itself: a distribution's own package begins at 1 and replaces this one.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0upstream1)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries are found by dpkg-shlibdeps. It can't see what is loaded by name: the help's search
# and pages are kept in an SQLite file.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt6sql6-sqlite)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, hicolor-icon-theme")

# The weekday of the release, by Sakamoto's rule; Debian's changelog wants it.
string(REGEX MATCH "([0-9]+)-([0-9]+)-([0-9]+)" found "${QUIB_RELEASE_DATE}")
math(EXPR month "${CMAKE_MATCH_2} - 1")
math(EXPR day "${CMAKE_MATCH_3}")
set(year ${CMAKE_MATCH_1})
set(shifts 0 3 2 5 0 3 5 1 4 6 2 4)
list(GET shifts ${month} shift)
if(month LESS 2)
  math(EXPR counted "${year} - 1")
else()
  set(counted ${year})
endif()
math(EXPR weekday "(${counted} + ${counted} / 4 - ${counted} / 100 + ${counted} / 400 + ${shift} + ${day}) % 7")
set(weekdays Sun Mon Tue Wed Thu Fri Sat)
list(GET weekdays ${weekday} weekday)
list(GET months ${month} month)
string(SUBSTRING ${month} 0 3 month)
set(QUIB_DEBIAN_DATE "${weekday}, ${CMAKE_MATCH_3} ${month} ${year} 12:00:00 +0000")

configure_file(debian/changelog.in debian/changelog @ONLY)
configure_file(debian/copyright debian/copyright COPYONLY)
configure_file(TidyPackage.cmake.in TidyPackage.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_BINARY_DIR}/TidyPackage.cmake")
include(CPack)
