# Target conventions shared by src/, tests/ and bench/.
#
# Every subsystem folder src/<subsystem> builds mivora_<subsystem>: its services, controllers and view
# models, on QtCore/QtNetwork only, tested on the test clock. Its Qt Widgets live in src/<subsystem>/views
# and build into mivora_<subsystem>_views through mivora_add_views(); the views bind to the controllers,
# never the other way round. Only the views, the platform implementations (src/platform/<platform>) and the
# executables may use Qt Gui or Widgets; mivora_check_layers() fails the configure step otherwise.

# mivora_add_views(<subsystem> SOURCES ...)
# Called from src/<subsystem>/views/CMakeLists.txt: the thin widgets of <subsystem>.
function(mivora_add_views subsystem)
    cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
    if(NOT TARGET mivora_${subsystem})
        message(FATAL_ERROR "mivora_add_views(${subsystem}): mivora_${subsystem} must be defined first")
    endif()
    add_library(mivora_${subsystem}_views STATIC ${ARG_SOURCES})
    target_link_libraries(mivora_${subsystem}_views PUBLIC mivora_${subsystem} Qt6::Widgets)
endfunction()

# The targets a target compiles against: its own link libraries and, through them, their usage
# requirements. Private dependencies of a dependency ($<LINK_ONLY:...>) do not reach its users' code.
function(_mivora_usage_closure target out)
    set(seen "")
    set(pending "")
    foreach(property LINK_LIBRARIES INTERFACE_LINK_LIBRARIES)
        get_target_property(direct ${target} ${property})
        if(direct)
            list(APPEND pending ${direct})
        endif()
    endforeach()
    while(pending)
        list(POP_FRONT pending item)
        if(item MATCHES "^\\$<" OR item MATCHES "^::@" OR item IN_LIST seen)
            continue()
        endif()
        list(APPEND seen ${item})
        if(TARGET ${item})
            get_target_property(imported ${item} IMPORTED)
            if(NOT imported)
                get_target_property(usage ${item} INTERFACE_LINK_LIBRARIES)
                if(usage)
                    list(APPEND pending ${usage})
                endif()
            endif()
        endif()
    endwhile()
    set(${out} ${seen} PARENT_SCOPE)
endfunction()

function(_mivora_targets_under dir out)
    get_property(targets DIRECTORY ${dir} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(subdirs DIRECTORY ${dir} PROPERTY SUBDIRECTORIES)
    foreach(sub IN LISTS subdirs)
        _mivora_targets_under(${sub} more)
        list(APPEND targets ${more})
    endforeach()
    set(${out} ${targets} PARENT_SCOPE)
endfunction()

# Fails when a library under src/ other than views and platform implementations compiles against Qt Gui or
# Qt Widgets.
function(mivora_check_layers)
    _mivora_targets_under(${PROJECT_SOURCE_DIR}/src targets)
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        if(type STREQUAL "EXECUTABLE" OR target MATCHES "_views$" OR target MATCHES "^mivora_platform_${MIVORA_PLATFORM}$")
            continue()
        endif()
        _mivora_usage_closure(${target} closure)
        foreach(banned Qt6::Gui Qt6::Widgets Qt::Gui Qt::Widgets)
            if(banned IN_LIST closure)
                message(FATAL_ERROR "${target} compiles against ${banned}; controllers and services use QtCore "
                                    "and QtNetwork only. Widgets belong in a views/ folder (mivora_add_views).")
            endif()
        endforeach()
    endforeach()
endfunction()
