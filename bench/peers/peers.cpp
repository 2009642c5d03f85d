#include "bench/peers/peers.h"

namespace bench {

std::vector<Peer> peers()
{
    return {
#ifdef YM_BENCH_GSTREAMER
        gstreamer(),
#endif
#ifdef YM_BENCH_OSIP2
        osip2(),
#endif
#ifdef YM_BENCH_SOFIA
        sofia(),
#endif
    };
}

} // namespace bench
