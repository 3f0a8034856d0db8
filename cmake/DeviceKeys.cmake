# The public keys of the devices that blobs are made for are inputs of the build: PEM files with a "PUBLIC KEY"
# (X.509 SubjectPublicKeyInfo, RFC 7468). Nobody holds the private halves of the development keys.
set(development_keys "${CMAKE_SOURCE_DIR}/resources/device-keys")
set(SPECIALPAGES_DEVICE_KEY_2048 "${development_keys}/development-2048.pem" CACHE FILEPATH
    "PEM file of the devices' 2048-bit public RSA key")
set(SPECIALPAGES_DEVICE_KEY_3072 "${development_keys}/development-3072.pem" CACHE FILEPATH
    "PEM file of the devices' 3072-bit public RSA key")

# The Base64 text between the lines of a PEM file.
function(specialpages_read_pem file out)
    if(NOT EXISTS "${file}")
        message(FATAL_ERROR "device key ${file}: no such file")
    endif()
    set_property(DIRECTORY "${CMAKE_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(READ "${file}" text)
    string(REGEX REPLACE "[ \t\r\n]" "" text "${text}")
    if(NOT text MATCHES "^-----BEGINPUBLICKEY-----([A-Za-z0-9+/]+=*)-----ENDPUBLICKEY-----$")
        message(FATAL_ERROR "device key ${file}: not one PEM block with the label PUBLIC KEY")
    endif()
    set(${out} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

# Adds the keys to the library of that name, and says in SPECIALPAGES_DEVELOPMENT_KEYS whether one is a development key.
function(specialpages_device_keys target)
    set(development 0)
    foreach(bits 2048 3072)
        specialpages_read_pem("${SPECIALPAGES_DEVICE_KEY_${bits}}" KEY_${bits})
        specialpages_read_pem("${development_keys}/development-${bits}.pem" own)
        if(KEY_${bits} STREQUAL own)
            set(development 1)
        endif()
    endforeach()
    set(generated "${CMAKE_BINARY_DIR}/generated/device_keys.cpp")
    configure_file("${CMAKE_SOURCE_DIR}/cmake/device_keys.cpp.in" "${generated}" @ONLY)
    target_sources(${target} PRIVATE "${generated}")
    set(SPECIALPAGES_DEVELOPMENT_KEYS ${development} PARENT_SCOPE)
endfunction()
