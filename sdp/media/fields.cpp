#include "sdp/media/fields.h"

#include "support/view.h"

namespace ym::SDP {

void putConnection(Writer& out, const Connection& connection, std::string_view suffix)
{
    if (connection.isSet())
        putLine(out, 'c', networkTypeStr(connection.netType), " ", addressTypeStr(connection.addrType), " ",
                connection.address, suffix);
}

void putBandwidth(Writer& out, const Bandwidth& bandwidth)
{
    if (bandwidth.isSet())
        putLine(out, 'b', bandwidth.modifier, ":", number(bandwidth.value));
}

void putEncryption(Writer& out, const Encryption& encryption)
{
    if (encryption.isSet())
        putLine(out, 'k', nameValue(encryptionMethodStr(encryption.method), ":", view(encryption.key)));
}

void putText(Writer& out, char type, const String& text)
{
    if (!isEmpty(text))
        putLine(out, type, text);
}

} // namespace ym::SDP
