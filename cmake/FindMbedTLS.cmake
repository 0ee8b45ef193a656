# Finds the cryptographic part of Mbed TLS and defines MbedTLS::mbedcrypto for it, the target's name
# in the package files that the library itself installs from its version 3 on.

find_package(MbedTLS CONFIG QUIET)
if(NOT TARGET MbedTLS::mbedcrypto)
  find_path(MbedTLS_INCLUDE_DIR mbedtls/md.h)
  find_library(MbedTLS_CRYPTO_LIBRARY mbedcrypto)
  mark_as_advanced(MbedTLS_INCLUDE_DIR MbedTLS_CRYPTO_LIBRARY)
  include(FindPackageHandleStandardArgs)
  find_package_handle_standard_args(MbedTLS REQUIRED_VARS MbedTLS_CRYPTO_LIBRARY
                                                          MbedTLS_INCLUDE_DIR)
  if(MbedTLS_FOUND)
    add_library(MbedTLS::mbedcrypto UNKNOWN IMPORTED)
    set_target_properties(MbedTLS::mbedcrypto PROPERTIES
      IMPORTED_LOCATION ${MbedTLS_CRYPTO_LIBRARY}
      INTERFACE_INCLUDE_DIRECTORIES ${MbedTLS_INCLUDE_DIR})
  endif()
endif()
