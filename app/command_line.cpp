#include "command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <exception>
#include <new>
#include <optional>
#include <string>

#include "base/error.h"
#include "commands/agenda.h"
#include "commands/commands.h"
#include "commands/demo.h"
#include "commands/insert.h"
#include "commands/ribbon.h"
#include "commands/run.h"
#include "commands/show.h"
#include "commands/toolbars.h"
#include "console.h"
#include "core/config.h"

namespace vellumark::app {
namespace {

const char* const overview = R"(Examples:
  vellumark show deck.pptx                 what is on the slides, and how shapes are called
  vellumark commands                       what can be done with them
  vellumark run alignLefts deck.pptx --slide 3 --select 'Box 1,Box 2' -o aligned.pptx
  vellumark insert 'Diagrams/Processes/Five steps' deck.pptx --slide 2 -o out.pptx
  vellumark agenda deck.pptx --items topics.txt -o out.pptx     agenda slides from a list of topics

"vellumark SUBCOMMAND --help" tells more, with examples.

Exit status: 0 done; 1 the command refused or failed; 2 wrong usage; 3 the deck can't be read or written.

The add-in's settings lie in ~/.config/vellumark/settings.db, or in the file that the environment variable
VELLUMARK_SETTINGS names.)";

const char* const showHelp =
    R"(A shape is named in other commands by its name, its "#" with the id, or its "@" with the position,
as this list has them.

Examples:
  vellumark show deck.pptx
  vellumark show deck.pptx --json | jq '.slides[2].shapes[].name')";

const char* const commandsHelp = R"(Examples:
  vellumark commands | grep -i align
  vellumark commands --json | jq '.[] | select(.counter == "statsTrimlineTools") | .name')";

const char* const runHelp =
    R"(COMMAND is a method name (alignLefts), a ribbon number (1032, zp_1032) or a toolbar parameter
("setLanguage 1031"); "vellumark commands" lists them. The master of a selection is the shape that is selected last.

The command sees what it would see in PowerPoint after these clicks. Message boxes and dialogs that come up are told on
standard error; --answer and --dialog answer them, and a question that nothing answers gets the answer that changes
nothing. Nothing is written without -o or --in-place, nor where the command refused its work or broke off with an error.

Examples:
  vellumark run alignLefts deck.pptx --slide 3 --select 'Box 2,Box 1' -o out.pptx
                                           Box 2 goes to the left edge of Box 1
  vellumark run 1061 deck.pptx --select '@4,#12' --in-place
                                           shape by position and by id; a comma in a name is written \,
  vellumark run alignTops deck.pptx --select 'Text\, long,Box' --answer ok --json
  vellumark run alignWidths deck.pptx --host 11.0 --select '@1,@2' -o out.pptx
                                           as the button of a toolbar, on a host before the ribbon)";

const char* const ribbonHelp =
    R"(Each control with its number, its key tip, and the state that it has for the selection; without DECK no window is
open.

Examples:
  vellumark ribbon
  vellumark ribbon deck.pptx --slide 3 --select 'Box 1,Box 2'
  vellumark ribbon deck.pptx --slides 2-4 --json)";

const char* const toolbarsHelp =
    R"(Each control of the add-in's bars with what it runs, the id of its help, its picture and the state that it has for the
selection; without DECK no window is open.

Examples:
  vellumark toolbars
  vellumark toolbars deck.pptx --slide 3 --select 'Box 1,Box 2' --host 9.0
  vellumark toolbars deck.pptx --slides 2-4 --json)";

const char* const insertHelp =
    R"(ELEMENT is one of the Slide Wizard's (menu, gallery and name) or of your own (My Elements, group and name), as
"vellumark ribbon" lists them ("vellumark toolbars" with --host 9.0 to 11.0). It comes in the style of --style, else in the one that was chosen for the deck before,
else in the one that suits the slides. Its colours and fonts are those of the deck.

Examples:
  vellumark insert 'Diagrams/Processes/Five steps' deck.pptx --slide 3 -o out.pptx
  vellumark insert 'Text and tables/Tables/1' deck.pptx --style 'Vellumark Grey' --in-place
  vellumark insert 'My Elements/Miscellaneous/Logo' deck.pptx --slide 2 -o out.pptx)";

const char* const agendaHelp =
    R"(FILE is plain text with an item a line, those of the second level behind a tab or two blanks, or CSV with
the columns level, text, responsible, minutes, break, shown, own slide. Items that the agenda has already keep their
slides; new slides come at the end of the deck. --export writes the items in that form, to -o FILE or to standard output.

Examples:
  vellumark agenda deck.pptx --items topics.txt --style 'Vellumark Grey' --start 13:30 --times -o out.pptx
  vellumark agenda deck.pptx --export -o topics.csv
  vellumark agenda deck.pptx --pages --in-place      after slides were moved)";

const char* const demoHelp =
    R"(Takes the first slide with enough shapes, brings the row on it in line, makes it equally wide and closes its gaps.

Example:
  vellumark demo deck.pptx -o straight.pptx)";

// Descriptions that take more than one line.
const char* const selectDescription = R"(Select shapes on it in that order, the master last:
name, #id or @index)";
const char* const copyDescription = R"(Copy shapes of the slide in view to the clipboard
first, for commands that paste)";
const char* const viewDescription = R"(The view: slide, slidemaster, notes, handoutmaster,
notesmaster, outline, sorter, titlemaster, normal, thumbnails)";
const char* const dialogDescription = R"(Answer a dialog; again for further ones, in order:
'FORM: control=value; control(2)=value; button'
also: form!type=text; form!press=Escape; form!wait=1500
(milliseconds); picture!click=120,40; form!close;
pixel=120,40 or color=#1B6878 clicks there on the screen)";
const char* const agendaStyle = R"(Take over the look of a style (default: of the style that
was chosen before, else one that suits the slides))";
const char* const suitableStyle = R"(Choose a style on the ribbon (default: the one that was
chosen for the deck before, else one that suits the slides))";
const char* const chosenStyle = R"(Choose a style on the ribbon (default: the one that was
chosen for the deck before, else the first))";
const char* const answerDescription = R"(Answer a message box by its button, an input box by its
text, a file dialog by a path; again for further ones,
in order (default: what changes nothing))";

const char* const itemsDescription = R"(The items, as text or CSV (default: those of the agenda
that the deck holds))";
const char* const exportDescription = "Write the items of the deck's agenda as CSV instead";

/// Gives a help page its examples, and room for the longest option.
void describe(CLI::App& command, const char* footer) {
  command.footer(footer);
  command.get_formatter()->column_width(34);
}

void addShow(CLI::App& program, ShowOptions& options) {
  CLI::App& show = *program.add_subcommand("show", "List the slides of a deck and the shapes on them");
  show.add_option("DECK", options.deck, "The presentation, a .pptx file")->required()->option_text(" ");
  show.add_flag("--json", options.json, "As JSON");
  describe(show, showHelp);
}

void addCommands(CLI::App& program, bool& json) {
  CLI::App& commands = *program.add_subcommand("commands", "List the commands of the add-in");
  commands.add_flag("--json", json, "As JSON");
  describe(commands, commandsHelp);
}

/// Where the result goes.
CLI::Option* addOut(CLI::App& command, std::string& out) {
  return command.add_option("-o", out, "Write the result there")
      ->option_text("OUT")
      ->check(CLI::Validator([](std::string& path) { return path.empty() ? "names no file" : ""; }, ""));
}

/// The options that select something in a deck's window.
void addSituation(CLI::App& command, Situation& situation, const char* styleDescription) {
  command.add_option("--slide", situation.slide, "The slide in view (default 1)")->option_text("N");
  CLI::Option* select =
      command.add_option("--select", situation.select, selectDescription)->option_text("A,B,C");
  CLI::Option* slides = command.add_option("--slides", situation.slides, "Select slides instead")
                            ->option_text("2,4-6")
                            ->excludes(select);
  CLI::Option* text =
      command.add_option("--text", situation.text, "Select text in a shape, characters from 1")
          ->option_text("SHAPE:START,LENGTH")
          ->excludes(select)
          ->excludes(slides);
  command.add_option("--cells", situation.cells, "Select cells of a table, rows and columns from 1")
      ->option_text("TABLE:ROW,COLUMN;...")
      ->excludes(select)
      ->excludes(slides)
      ->excludes(text);
  command.add_option("--copy", situation.copy, copyDescription)->option_text("A,B,C");
  command.add_option("--view", situation.view, viewDescription)->option_text("TYPE");
  command.add_option("--style", situation.style, styleDescription)->option_text("NAME");
  command
      .add_option("--host", situation.host,
                  "The version that the host reports: 9.0 to 16.0 (default " + situation.host + ")")
      ->option_text("VERSION")
      ->check(CLI::IsMember({"9.0", "10.0", "11.0", "12.0", "14.0", "15.0", "16.0"}));
}

void addAnswers(CLI::App& command, std::vector<std::string>& dialogs, std::vector<std::string>& answers) {
  command.add_option("--dialog", dialogs, dialogDescription)->option_text("SCRIPT")->allow_extra_args(false);
  command.add_option("--answer", answers, answerDescription)->option_text("BUTTON")->allow_extra_args(false);
}

/// The options of what works on a deck as a user does.
void addRunOptions(CLI::App& command, RunOptions& options, const char* styleDescription) {
  CLI::Option* out = addOut(command, options.out);
  command.add_flag("--in-place", options.inPlace, "Write the result over the deck")
      ->excludes(out)
      ->option_text(" ");
  addSituation(command, options, styleDescription);
  addAnswers(command, options.dialogs, options.answers);
  command.add_option("--root", options.root, "The installation (default: the program's own)")
      ->option_text("DIR");
  command.add_flag("--json", options.json, "Tell the shapes of the slide in view afterwards, as JSON");
}

void addInsert(CLI::App& program, InsertOptions& options) {
  CLI::App& insert = *program.add_subcommand("insert", "Insert an element of a gallery into a slide");
  insert.add_option("ELEMENT", options.element, "Its menu, gallery and name, or number")
      ->required()
      ->option_text(" ");
  insert.add_option("DECK", options.deck, "The presentation, a .pptx file")->required()->option_text(" ");
  addRunOptions(insert, options, suitableStyle);
  describe(insert, insertHelp);
}

void addRibbon(CLI::App& program, RibbonOptions& options) {
  CLI::App& ribbon = *program.add_subcommand("ribbon", "Show the add-in's tab on the ribbon");
  ribbon.add_option("DECK", options.deck, "The presentation, a .pptx file")->option_text(" ");
  addSituation(ribbon, options, chosenStyle);
  ribbon.add_option("--root", options.root, "The installation (default: the program's own)")
      ->option_text("DIR");
  ribbon.add_flag("--json", options.json, "As JSON");
  describe(ribbon, ribbonHelp);
}

void addToolbars(CLI::App& program, ToolbarsOptions& options) {
  CLI::App& toolbars =
      *program.add_subcommand("toolbars", "Show the add-in's toolbars on a host before the ribbon");
  toolbars.add_option("DECK", options.deck, "The presentation, a .pptx file")->option_text(" ");
  addSituation(toolbars, options, chosenStyle);
  toolbars.add_option("--root", options.root, "The installation (default: the program's own)")
      ->option_text("DIR");
  toolbars.add_flag("--json", options.json, "As JSON");
  describe(toolbars, toolbarsHelp);
}

void addRun(CLI::App& program, RunOptions& options) {
  CLI::App& run = *program.add_subcommand("run", "Run a command on a deck");
  run.add_option("COMMAND", options.command, "What to run")->required()->option_text(" ");
  run.add_option("DECK", options.deck, "The presentation, a .pptx file")->required()->option_text(" ");
  addRunOptions(run, options, chosenStyle);
  describe(run, runHelp);
}

/// A switch with its opposite; neither leaves things as they are.
void addSwitch(CLI::App& command, const std::string& name, const char* description,
               std::optional<bool>& value) {
  CLI::Option* on = command
                        .add_flag_callback(
                            "--" + name, [&value] { value = true; }, description)
                        ->option_text(" ");
  command
      .add_flag_callback(
          "--no-" + name, [&value] { value = false; }, "... or not")
      ->excludes(on)
      ->option_text(" ");
}

void addAgenda(CLI::App& program, AgendaCommandOptions& options) {
  CLI::App& agenda = *program.add_subcommand("agenda", "Make the agenda slides of a deck, or list its items");
  agenda.add_option("DECK", options.deck, "The presentation, a .pptx file")->required()->option_text(" ");
  CLI::Option* items = agenda.add_option("--items", options.items, itemsDescription)->option_text("FILE");
  CLI::Option* style = agenda.add_option("--style", options.agenda.style, agendaStyle)->option_text("NAME");
  agenda.add_option("--title", options.agenda.title, "Title of the agenda slides")->option_text("TEXT");
  agenda.add_option("--subtitle", options.agenda.subtitle, "The line below it")->option_text("TEXT");
  agenda.add_option("--start", options.agenda.start, "When the first item begins")->option_text("HH:MM");
  addSwitch(agenda, "numbers", "Number the items", options.agenda.numbers);
  addSwitch(agenda, "responsible", "Show who is responsible", options.agenda.responsible);
  addSwitch(agenda, "times", "Show when each item begins and ends", options.agenda.times);
  addSwitch(agenda, "pages", "Show the number of each item's slide", options.agenda.pages);
  agenda.get_option("--pages")->excludes("--times");
  CLI::Option* exporting = agenda.add_flag("--export", options.exportItems, exportDescription);
  exporting->excludes(items)->excludes(style)->option_text(" ");
  CLI::Option* out = addOut(agenda, options.out);
  agenda.add_flag("--in-place", options.inPlace, "Write the result over the deck")
      ->excludes(out)
      ->excludes(exporting)
      ->option_text(" ");
  addAnswers(agenda, options.dialogs, options.answers);
  agenda.add_option("--root", options.root, "The installation (default: the program's own)")
      ->option_text("DIR");
  describe(agenda, agendaHelp);
}

void addDemo(CLI::App& program, DemoOptions& options) {
  CLI::App& demo = *program.add_subcommand("demo", "Straighten a slide and show what moved");
  demo.add_option("DECK", options.deck, "The presentation, a .pptx file")->required()->option_text(" ");
  addOut(demo, options.out)->required();
  demo.add_option("--root", options.root, "The installation (default: the program's own)")
      ->option_text("DIR");
  describe(demo, demoHelp);
}

}  // namespace

Exit runCommandLine(int argc, const char* const* argv, const Surroundings& surroundings) {
  CLI::App program("Shape tools for business slides, on .pptx files, without PowerPoint.", "vellumark");
  program.require_subcommand(1);
  program.set_version_flag("--version", "vellumark " + std::string(core::addInVersion));
  describe(program, overview);

  ShowOptions showOptions;
  bool commandsJson = false;
  RunOptions runOptions;
  DemoOptions demoOptions;
  addShow(program, showOptions);
  addCommands(program, commandsJson);
  addRun(program, runOptions);
  InsertOptions insertOptions;
  addInsert(program, insertOptions);
  RibbonOptions ribbonOptions;
  addRibbon(program, ribbonOptions);
  ToolbarsOptions toolbarsOptions;
  addToolbars(program, toolbarsOptions);
  AgendaCommandOptions agendaOptions;
  addAgenda(program, agendaOptions);
  addDemo(program, demoOptions);

  const auto chosen = [&] { return program.get_subcommands(); };
  try {
    program.parse(argc, argv);
  } catch (const CLI::CallForVersion& version) {
    print(std::string(version.what()) + "\n");
    return Exit::done;
  } catch (const CLI::CallForHelp&) {
    print(program.help());
    return Exit::done;
  } catch (const CLI::ParseError& error) {
    const bool none = chosen().empty();
    const std::string what = none && argc > 1 && argv[1][0] != '-'
                                 ? "there is no subcommand \"" + std::string(argv[1]) + "\""
                                 : std::string(error.what());
    throw Failure(Exit::usage, what + "; see \"vellumark " +
                                   (none ? "" : chosen().front()->get_name() + " ") + "--help\"");
  }
  const std::string subcommand = chosen().front()->get_name();
  if (subcommand == "show") return show(showOptions);
  if (subcommand == "commands") return listCommands(commandsJson);
  if (subcommand == "run") return run(runOptions, surroundings);
  if (subcommand == "insert") return insert(insertOptions, surroundings);
  if (subcommand == "ribbon") return ribbon(ribbonOptions, surroundings);
  if (subcommand == "toolbars") return toolbars(toolbarsOptions, surroundings);
  if (subcommand == "agenda") return agenda(agendaOptions, surroundings);
  return demo(demoOptions, surroundings);
}

int runProgram(int argc, const char* const* argv, const Surroundings& surroundings) {
  try {
    return static_cast<int>(runCommandLine(argc, argv, surroundings));
  } catch (const Failure& failure) {
    tellFailure(failure.what());
    return static_cast<int>(failure.exit());
  } catch (const base::Error& error) {
    tellFailure(error.description() + " (" + std::to_string(error.number()) + ")");
  } catch (const std::bad_alloc&) {
    tellFailure("out of memory: the deck is too large for this machine");
  } catch (const std::exception& failure) {
    tellFailure(failure.what());
  }
  return static_cast<int>(Exit::refused);
}

}  // namespace vellumark::app
