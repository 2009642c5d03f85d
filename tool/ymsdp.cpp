// The command line of the library: what it makes of a description, for people to read and for other programs to use.

#include <csignal>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <sdp/SDPDesc.h>

#include "commands.h"

namespace {

using namespace ymsdp;

struct Arguments {
    std::vector<std::string> paths = {"-"};
    std::string path = "-";
    std::string color = "auto";
    ShowOptions show;
    CheckOptions check;
    TextOptions text;
    std::vector<std::string> edits;
    CodecsOptions codecs;
};

using Command = std::function<Result(Arguments&)>;

Result overAll(const std::vector<std::string>& paths, const std::function<Result(const Descriptions&)>& command)
{
    Descriptions descriptions;
    Status status = Success;
    for (const std::string& path : paths) {
        try {
            descriptions.push_back(readDescription(path));
        } catch (const Trouble& trouble) {
            complain(trouble.what());
            status = Troubled;
        }
    }
    if (descriptions.empty())
        return {"", status};
    Result result = command(descriptions);
    result.status = std::max(result.status, status);
    return result;
}

void addFiles(CLI::App& sub, Arguments& arguments)
{
    sub.add_option("FILE", arguments.paths, "The descriptions; \"-\" or none is the standard input")
        ->option_text("...");
}

void addFile(CLI::App& sub, Arguments& arguments)
{
    sub.add_option("FILE", arguments.path, "The description; \"-\" or none is the standard input")->option_text(" ");
    sub.add_flag("--lf", arguments.text.lf, "End lines with LF instead of CR LF");
}

void addShow(CLI::App& app, Arguments& arguments, Command& command)
{
    CLI::App* sub = app.add_subcommand("show", "Print a summary of descriptions");
    addFiles(*sub, arguments);
    auto* lines = sub->add_flag("--lines", arguments.show.lines, "Print the numbered lines by section");
    sub->add_flag("--json", arguments.show.json, "Print all lines and objects as JSON")->excludes(lines);
    sub->callback([&command] {
        command = [](Arguments& args) {
            args.show.paint = Paint(args.color);
            return overAll(args.paths, [&](const Descriptions& all) { return show(all, args.show); });
        };
    });
}

void addCheck(CLI::App& app, Arguments& arguments, Command& command)
{
    CLI::App* sub = app.add_subcommand("check", "Tell which lines do not come through the objects, and why");
    addFiles(*sub, arguments);
    sub->add_option("--severity", arguments.check.severity, "The least that is shown: error, warning (default), note")
        ->check(CLI::IsMember({"error", "warning", "note"}))
        ->option_text("LEVEL");
    sub->add_flag("--hints", arguments.check.hints, "Tell what to do about each");
    sub->add_flag("--json", arguments.check.json, "Print the findings as JSON");
    sub->callback([&command] {
        command = [](Arguments& args) {
            args.check.paint = Paint(args.color);
            return overAll(args.paths, [&](const Descriptions& all) { return check(all, args.check); });
        };
    });
}

// A command that makes a text out of a text.
CLI::App* addFilter(CLI::App& app, const char* name, const char* help, Arguments& arguments, Command& command,
                    const std::function<Result(const Description&, const Arguments&)>& filter)
{
    CLI::App* sub = app.add_subcommand(name, help);
    addFile(*sub, arguments);
    sub->callback([&command, filter] {
        command = [filter](Arguments& args) { return filter(readDescription(args.path), args); };
    });
    return sub;
}

void addFilters(CLI::App& app, Arguments& arguments, Command& command)
{
    addFilter(app, "rewrite", "Write the text that the objects give", arguments, command,
              [](const Description& text, const Arguments& args) { return rewrite(text, args.text); });
    addFilter(app, "edit", "Change, add and remove lines", arguments, command,
              [](const Description& text, const Arguments& args) { return edit(text, args.edits, args.text); })
        ->add_option("-e,--edit", arguments.edits,
                     "s=NEW, m1.c=IN IP4 192.0.2.9, m0.a:ptime=20, -m2, -m*.a:rtcp-fb, +m=audio 9 RTP/AVP 0")
        ->required()
        ->option_text("EDIT ...")
        ->allow_extra_args(false);
    CLI::App* sub = addFilter(
        app, "codecs", "Choose formats by name or number", arguments, command,
        [](const Description& text, const Arguments& args) { return codecs(text, args.codecs, args.text); });
    const auto add = [&](const char* name, std::vector<std::string>& list, const char* help) {
        sub->add_option(name, list, help)->delimiter(',')->option_text("LIST")->allow_extra_args(false);
    };
    add("--keep", arguments.codecs.keep, "Keep these, and no others");
    add("--drop", arguments.codecs.drop, "Take these out");
    add("--first", arguments.codecs.first, "Put these in front, in this order");
    addFilter(app, "clean", "Take out what strict readers stumble over", arguments, command,
              [](const Description& text, const Arguments& args) { return clean(text, args.text); });
    addFilter(app, "hide", "Replace addresses, names, keys and free text", arguments, command,
              [](const Description& text, const Arguments& args) { return hide(text, args.text); });
}

Status runCommandLine(int argc, char** argv)
{
    Arguments arguments;
    Command command;
    CLI::App app("Looks at session descriptions (SDP) and changes them.\n"
                 "Exit status: 0; 1 if check finds something, or edit or codecs does not; 2 for trouble.",
                 "ymsdp");
    app.set_version_flag("--version", std::string("ymsdp ") + ym::SDP_version);
    app.add_option("--color", arguments.color, "auto (default), always or never")
        ->check(CLI::IsMember({"auto", "always", "never"}))
        ->option_text("WHEN");
    app.require_subcommand(1);
    app.fallthrough();
    addShow(app, arguments, command);
    addCheck(app, arguments, command);
    addFilters(app, arguments, command);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 && std::cout.flush() ? Success : Troubled;
    }
    const Result result = command(arguments);
    print(result.out);
    return result.status;
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return runCommandLine(argc, argv);
    } catch (const std::bad_alloc&) {
        complain("out of memory");
    } catch (const std::exception& trouble) {
        complain(trouble.what());
    }
    return Troubled;
}
