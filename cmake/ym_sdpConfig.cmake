# The imported targets ym::sdp, ym::tovik and ym::sdpcheck. They need no other package.
include(${CMAKE_CURRENT_LIST_DIR}/ym_sdpTargets.cmake)
