#include "output.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

#include "text.h"

namespace ymsdp {

namespace {

bool isTerminal()
{
    return isatty(STDOUT_FILENO) == 1;
}

bool isSet(const char* variable)
{
    const char* value = std::getenv(variable);
    return value && *value;
}

bool isDumb()
{
    const char* terminal = std::getenv("TERM");
    return terminal && std::strcmp(terminal, "dumb") == 0;
}

} // namespace

Paint::Paint(std::string_view when)
    : isOn_(when == "always" || (when == "auto" && isTerminal() && !isSet("NO_COLOR") && !isDumb()))
{
}

std::string Paint::operator()(Style style, std::string_view text) const
{
    if (!isOn_)
        return std::string(text);
    return "\033[" + std::to_string(style) + "m" + std::string(text) + "\033[0m";
}

std::string textOf(const Lines& lines, bool withLf)
{
    const bool isShown = isTerminal();
    std::string text;
    for (const std::string& line : lines)
        text.append(isShown ? printable(line) : line).append(withLf ? "\n" : "\r\n");
    return text;
}

void complain(std::string_view message)
{
    std::fprintf(stderr, "ymsdp: %s\n", std::string(message).c_str());
}

void print(std::string_view text)
{
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (!isWritten && errno != EPIPE)
        throw Trouble(std::string("standard output: ") + std::strerror(errno));
}

} // namespace ymsdp
