// The words of the vocabulary as they stand in a text, without a NUL behind them.
#pragma once

#include <string_view>

#include <sdp/vocabulary.h>

namespace ym::SDP {

NetworkType networkTypeOf(std::string_view word);
AddressType addressTypeOf(std::string_view word);
EncryptionMethod encryptionMethodOf(std::string_view word);

} // namespace ym::SDP
