# The Debian packages that cpack makes, one for each component that is installed. A static library has
# no runtime of its own; who builds with it needs what it is made of instead.
get_target_property(KORRIN_SOVERSION KorrinCore SOVERSION)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korrincore)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_CONTACT "The developers of KorrinCore")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/korrin)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

set(CPACK_COMPONENTS_ALL dev)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libkorrincore-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DESCRIPTION "What programs are built with: the headers of the C++ library KorrinCore
and its modules for CMake and pkg-config. The library holds the values of
a plot, a strict JSON document format, undoable commands, validation,
preflight and templates.")

if(BUILD_SHARED_LIBS)
  list(APPEND CPACK_COMPONENTS_ALL runtime)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libkorrincore${KORRIN_SOVERSION})
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
  set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "What programs that were built with the C++ library KorrinCore need to run.")
  set(CPACK_COMPONENT_DEV_DEPENDS runtime)
  set(CPACK_COMPONENT_TOOL_DEPENDS runtime)
else()
  set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libutf8proc-dev, zlib1g-dev, pkg-config")
  if(KORRIN_PDF_ENCRYPTION)
    string(APPEND CPACK_DEBIAN_DEV_PACKAGE_DEPENDS ", libmbedtls-dev")
  endif()
endif()

if(KORRIN_BUILD_TOOL)
  list(APPEND CPACK_COMPONENTS_ALL tool)
  set(CPACK_DEBIAN_TOOL_PACKAGE_NAME korrin)
  set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
  # PDF and PNG, and characters of most scripts and emoji in them. rsvg-convert draws outlines: of fonts of coloured emoji
  # it would draw blots.
  set(CPACK_DEBIAN_TOOL_PACKAGE_RECOMMENDS "librsvg2-bin, fonts-dejavu-core, fonts-noto-core, \
fonts-noto-cjk, fonts-symbola")
  set(CPACK_COMPONENT_TOOL_DESCRIPTION "The command-line host: checks, formats, edits, draws and makes stage
plots, which a touring act sends to a venue.")
endif()

if(KORRIN_BUILD_EDITOR)
  list(APPEND CPACK_COMPONENTS_ALL editor)
  set(CPACK_DEBIAN_EDITOR_PACKAGE_NAME korrin-editor)
  set(CPACK_DEBIAN_EDITOR_PACKAGE_SECTION graphics)
  # Symbols of the window itself, and its buttons in the user's language.
  set(CPACK_DEBIAN_EDITOR_PACKAGE_DEPENDS "libqt6svg6")
  set(CPACK_DEBIAN_EDITOR_PACKAGE_RECOMMENDS "qt6-translations-l10n, qt6-wayland, \
fonts-dejavu-core")
  set(CPACK_COMPONENT_EDITOR_DESCRIPTION "The desktop editor: draws a stage plot and the lists that a venue works
from, finds what the plot still lacks, and opens plots by a double click.")
  if(BUILD_SHARED_LIBS)
    set(CPACK_COMPONENT_EDITOR_DEPENDS runtime)
  endif()
endif()

include(CPack)
