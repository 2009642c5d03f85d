// The command line of the library: what it makes of a description, for people to read and for other programs to use.

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>
#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>

#include "description.h"
#include "show.h"
#include "text.h"

namespace {

using namespace ymsdp;
using ym::SDP::SDPDescEx;

enum Status : int {
    Success = 0,
    Refused = 1,  // the description
    Troubled = 2, // the tool itself: files, arguments, memory
};

void readSession(const Description& description, SDPDescEx& session)
{
    if (session.parse(description.text) != 0)
        throw refusal(description);
}

// The line view is shown on its own for a description that only the object view refuses.
void show(const Description& description)
{
    ym::SDP::SDPDesc lines("\r\n");
    if (lines.parse(description.text) != 0)
        throw refusal(description);
    showLines(description);
    SDPDescEx session;
    readSession(description, session);
    std::puts("");
    showObjects(session);
    std::puts("");
    showChanges(description, session);
}

void rewrite(const Description& description)
{
    SDPDescEx session;
    readSession(description, session);
    ym::String text;
    session.generate(&text);
    std::fwrite(text.chars(), 1, text.length(), stdout);
}

void finishOutput()
{
    errno = 0;
    const bool isFlushed = std::fflush(stdout) == 0;
    if (!isFlushed || std::ferror(stdout))
        throw Trouble(std::string("standard output: ") + (errno ? std::strerror(errno) : "can not be written"));
}

using Command = void (*)(const Description&);

Status complain(const char* message, Status status)
{
    // What was printed before belongs before the message where both go to one place.
    std::fflush(stdout);
    std::fprintf(stderr, "ymsdp: %s\n", message);
    return status;
}

Status run(Command command, const std::string& path)
{
    command(readDescription(path));
    finishOutput();
    return Success;
}

Status runCommandLine(int argc, char** argv)
{
    CLI::App app("Reads session descriptions (SDP) with ym_sdp.\n"
                 "Exit status: 0, 1 for a description that is refused, 2 for trouble with files or arguments.",
                 "ymsdp");
    app.set_version_flag("--version", std::string("ymsdp ") + ym::SDP_version);
    app.require_subcommand(1);

    std::string path = "-";
    Command command = nullptr;
    const auto add = [&](const char* name, const char* help, Command which) {
        CLI::App* sub = app.add_subcommand(name, help);
        sub->add_option("FILE", path, "The description; \"-\" or none is the standard input");
        sub->callback([&command, which] { command = which; });
    };
    add("show", "Print the lines, the objects made of them, and what a rewrite changes", show);
    add("rewrite", "Write the text that the objects give", rewrite);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 && std::cout.flush() ? Success : Troubled;
    }
    return run(command, path);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return runCommandLine(argc, argv);
    } catch (const Refusal& refused) {
        return complain(refused.what(), Refused);
    } catch (const std::bad_alloc&) {
        return complain("out of memory", Troubled);
    } catch (const std::exception& trouble) {
        return complain(trouble.what(), Troubled);
    }
}
