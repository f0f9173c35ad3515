# Keeps everything but the public interface inside the library.
#
# On Windows the declarations decide, as nothing is exported that is not marked. In the other
# world instances of standard templates would slip out, so the linker is told what may leave.

if(NOT WIN32)
    target_link_options(ovalis PRIVATE
                        LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/ovalis.map)
    set_target_properties(ovalis PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/ovalis.map)
endif()
