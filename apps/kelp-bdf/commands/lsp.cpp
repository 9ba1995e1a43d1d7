// Two threads: one reads standard input and cuts it into messages, one answers them. The reader is
// let go at the end, for it may be waiting for a client that says nothing more; all that it touches
// belongs to both.

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include "cli/output.hpp"
#include "commands/commands.hpp"
#include "kelp/core/console.hpp"
#include "kelp/core/process.hpp"
#include "lsp/framing.hpp"
#include "lsp/inbox.hpp"
#include "lsp/server.hpp"

namespace kelp::app {
namespace {

using lsp::Inbox;
using lsp::Json;
using lsp::Message;

/// All messages, for whoever wants to know what went wrong: one on a line, behind an arrow.
class Trace {
 public:
  explicit Trace(const std::string& path) {
    if (!path.empty()) {
      file_.open(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
      if (!file_) {
        throw std::runtime_error("cannot write '" + path + "'");
      }
    }
  }

  void note(std::string_view arrow, std::string_view content) {
    if (file_.is_open()) {
      file_ << arrow << ' ' << content << '\n' << std::flush;
    }
  }

 private:
  std::ofstream file_;
};

bool is_exit(const Message& message) {
  return message.kind == lsp::MessageKind::Notification && message.method == "exit";
}

// Returns true when nothing more is to be read.
bool put_items(lsp::MessageReader& reader, Inbox& inbox) {
  while (const std::optional<lsp::StreamItem> item = reader.next()) {
    Message message = item->is_message
                          ? lsp::read_message(item->text)
                          : lsp::malformed_message(lsp::ErrorCode::ParseError, item->text);
    const bool is_last = is_exit(message);
    message.content = item->is_message ? item->text : std::string();
    inbox.put(std::move(message));
    if (is_last) {
      return true;
    }
  }
  return false;
}

void read_messages(Inbox& inbox) {
  constexpr std::size_t buffer_size = 65536;
  lsp::MessageReader reader;
  std::array<char, buffer_size> buffer;
  while (const std::size_t count = core::console::read_input(buffer.data(), buffer.size())) {
    reader.feed({buffer.data(), count});
    if (put_items(reader, inbox)) {
      return;
    }
  }
  inbox.end();
}

lsp::ServerSetup setup_of(Session& session) {
  lsp::ServerSetup setup;
  setup.version = KELP_BDF_APP_VERSION;
  setup.language = session.language();
  setup.language_is_chosen = !session.options.language.empty();
  setup.load_schema = [&session](const std::string& path) {
    return path.empty() ? session.schema() : input::bdf::InputSchema::from_file(path);
  };
  return setup;
}

bool client_is_gone(const lsp::Server& server) {
  return output_ended() ||
         (server.client_process() != 0 && !core::process::is_running(server.client_process()));
}

// Nothing is looked for while messages wait. Where it takes long, in a geometry of very many atoms,
// it is not begun before the editor is silent for as long, or else it would hold up the answer to
// the next key.
std::chrono::milliseconds patience_for(const lsp::Server& server) {
  constexpr std::chrono::milliseconds unnoticed(50);
  constexpr std::chrono::milliseconds longest(500);
  constexpr std::chrono::milliseconds until_a_look_at_the_client(5000);
  if (!server.has_news()) {
    return until_a_look_at_the_client;
  }
  const std::chrono::milliseconds effort = server.last_effort();
  return effort < unnoticed ? std::chrono::milliseconds(0) : std::min(effort, longest);
}

void serve(lsp::Server& server, Inbox& inbox, Trace& trace) {
  while (!server.is_over() && !output_ended()) {
    const std::optional<lsp::Arrival> arrival = inbox.take(patience_for(server));
    if (!arrival && server.has_news()) {
      server.publish_findings();
    } else if (!arrival && client_is_gone(server)) {
      return;
    } else if (arrival && arrival->is_end) {
      return;
    } else if (arrival) {
      trace.note("-->", arrival->message.content);
      server.handle(arrival->message, arrival->is_cancelled);
    }
  }
}

}  // namespace

ExitStatus run_lsp(const LspOptions& options, Session& session) {
  core::console::let_closed_pipes_be_errors();
  Trace trace(options.trace);
  lsp::Server server(setup_of(session), [&trace](const Json& message) {
    const std::string content = lsp::text_of(message);
    trace.note("<--", content);
    print(lsp::framed(content));
    static_cast<void>(output_failed());  // it flushes
  });
  const auto inbox = std::make_shared<Inbox>();
  std::thread([inbox] { read_messages(*inbox); }).detach();
  serve(server, *inbox, trace);
  return server.ended_well() ? ExitStatus::Success : ExitStatus::Findings;
}

}  // namespace kelp::app
