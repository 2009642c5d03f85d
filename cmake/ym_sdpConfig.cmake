# The imported targets ym::sdp and ym::tovik.
include(${CMAKE_CURRENT_LIST_DIR}/ym_sdpTargets.cmake)
