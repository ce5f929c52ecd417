# The macOS application bundle around an executable target: its Info.plist from packaging/macos, the icon
# rendered from data/mivora.svg, and the updater framework when MIVORA_MAC_UPDATER is on.
function(mivora_make_mac_bundle target)
    set(icon_name "mivora")
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME "MivoraAI"
        MACOSX_BUNDLE_INFO_PLIST "${PROJECT_SOURCE_DIR}/packaging/macos/Info.plist.in"
        MACOSX_BUNDLE_GUI_IDENTIFIER "ai.mivora.native"
        MACOSX_BUNDLE_BUNDLE_NAME "MivoraAI"
        MACOSX_BUNDLE_SHORT_VERSION_STRING "${PROJECT_VERSION}"
        MACOSX_BUNDLE_BUNDLE_VERSION "${MIVORA_BUILD_NUMBER}")
    # Homebrew's Qt 6 runs on macOS 12 and later.
    set(minimum_system "${CMAKE_OSX_DEPLOYMENT_TARGET}")
    if(NOT minimum_system)
        set(minimum_system "12.0")
    endif()

    # The icon: the SVG drawn at every size of an icon set, then packed by iconutil. Nothing in the
    # repository is a bitmap, so the drawing needs rsvg-convert (Homebrew's librsvg); without it the bundle
    # has the generic application icon.
    find_program(MIVORA_RSVG_CONVERT rsvg-convert)
    find_program(MIVORA_ICONUTIL iconutil)
    if(MIVORA_RSVG_CONVERT AND MIVORA_ICONUTIL)
        set(iconset "${CMAKE_CURRENT_BINARY_DIR}/${icon_name}.iconset")
        set(icns "${CMAKE_CURRENT_BINARY_DIR}/${icon_name}.icns")
        set(svg "${PROJECT_SOURCE_DIR}/data/mivora.svg")
        set(render_commands)
        foreach(size 16 32 128 256 512)
            math(EXPR double "${size} * 2")
            list(APPEND render_commands
                COMMAND "${MIVORA_RSVG_CONVERT}" -w ${size} -h ${size} -o "${iconset}/icon_${size}x${size}.png" "${svg}"
                COMMAND "${MIVORA_RSVG_CONVERT}" -w ${double} -h ${double} -o "${iconset}/icon_${size}x${size}@2x.png" "${svg}")
        endforeach()
        add_custom_command(OUTPUT "${icns}"
            COMMAND "${CMAKE_COMMAND}" -E make_directory "${iconset}"
            ${render_commands}
            COMMAND "${MIVORA_ICONUTIL}" -c icns -o "${icns}" "${iconset}"
            DEPENDS "${svg}"
            COMMENT "Rendering the application icon"
            VERBATIM)
        set_source_files_properties("${icns}" PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
        target_sources(${target} PRIVATE "${icns}")
        set_target_properties(${target} PROPERTIES MACOSX_BUNDLE_ICON_FILE "${icon_name}.icns")
    else()
        message(STATUS "rsvg-convert or iconutil not found: the application bundle gets no icon of its own")
    endif()

    # Sparkle's feed and signing key live in the Info.plist; its own scheduled checks stay off, since the
    # program asks its update server itself and hands over to the updater only to install. The framework
    # is copied into the bundle, where the executable finds it through its run path.
    set(updater_keys "")
    if(MIVORA_MAC_UPDATER)
        set(MIVORA_SPARKLE_FEED_URL "" CACHE STRING "Appcast URL of the in-place updater")
        set(MIVORA_SPARKLE_PUBLIC_KEY "" CACHE STRING "Public EdDSA key that signs the updates")
        string(CONCAT updater_keys
            "    <key>SUFeedURL</key>\n    <string>${MIVORA_SPARKLE_FEED_URL}</string>\n"
            "    <key>SUPublicEDKey</key>\n    <string>${MIVORA_SPARKLE_PUBLIC_KEY}</string>\n"
            "    <key>SUEnableAutomaticChecks</key>\n    <false/>")
        set_target_properties(${target} PROPERTIES
            BUILD_RPATH "@executable_path/../Frameworks"
            INSTALL_RPATH "@executable_path/../Frameworks")
        add_custom_command(TARGET ${target} POST_BUILD
            COMMAND "${CMAKE_COMMAND}" -E make_directory "$<TARGET_BUNDLE_CONTENT_DIR:${target}>/Frameworks"
            COMMAND ditto "${MIVORA_SPARKLE_FRAMEWORK}"
                    "$<TARGET_BUNDLE_CONTENT_DIR:${target}>/Frameworks/Sparkle.framework"
            VERBATIM)
    endif()
    # The template is configured when the build system is generated, from the caller's directory scope.
    set(MIVORA_BUNDLE_UPDATER_KEYS "${updater_keys}" PARENT_SCOPE)
    set(MIVORA_BUNDLE_MINIMUM_SYSTEM "${minimum_system}" PARENT_SCOPE)
endfunction()
