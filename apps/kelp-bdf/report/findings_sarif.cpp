// Findings as SARIF 2.1.0, the interchange format of static analysis. Results are printed as they
// come; the rules, of which only those are listed that a result names, follow at the end of the
// run.

#include <fmt/format.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/version.hpp"
#include "report/findings_report.hpp"
#include "report/json.hpp"

namespace kelp::app {
namespace {

using input::bdf::Diagnostic;
using input::bdf::SourceText;
using input::bdf::TextRange;

constexpr std::string_view schema_address =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";
constexpr std::string_view source_root = "%SRCROOT%";
constexpr std::string_view fingerprint_name = "kelpBdfFinding/v1";

bool is_plain_in_uri(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9') || std::string_view("-._~/").find(byte) != std::string::npos;
}

std::string percent_encoded(std::string_view text) {
  std::string encoded;
  for (const char byte : text) {
    encoded += is_plain_in_uri(byte) ? std::string(1, byte)
                                     : fmt::format("%{:02X}", static_cast<unsigned char>(byte));
  }
  return encoded;
}

bool has_drive(std::string_view path) {
  return path.size() > 2 && path[1] == ':' && path[2] == '/';
}

// A path that begins anywhere else is relative to the folder that the command runs in. Where a
// backslash parts folders, it does so in no name.
Json artifact_location(std::string_view file) {
  std::string path(file);
  if constexpr (std::filesystem::path::preferred_separator == '\\') {
    for (char& byte : path) {
      byte = byte == '\\' ? '/' : byte;
    }
    if (has_drive(path)) {
      return {{"uri", "file:///" + path.substr(0, 2) + percent_encoded(path.substr(2))}};
    }
  }
  if (path.starts_with('/')) {
    return {{"uri", "file://" + percent_encoded(path)}};
  }
  return {{"uri", percent_encoded(path)}, {"uriBaseId", source_root}};
}

// The end is behind the last character, as everywhere in this library.
Json region(const TextRange& range, const SourceText& source) {
  const input::bdf::TextPosition start = source.position(range.begin);
  const input::bdf::TextPosition end = source.position(range.end);
  return {{"startLine", start.line}, {"startColumn", start.column}, {"endLine", end.line},
          {"endColumn", end.column}, {"byteOffset", range.begin},   {"byteLength", range.size()}};
}

Json location(const std::optional<TextRange>& range, const Finding& finding) {
  Json place = {{"artifactLocation", artifact_location(finding.file)}};
  if (range) {
    place["region"] = region(*range, finding.source);
  }
  return {{"physicalLocation", std::move(place)}};
}

Json fix_json(const input::bdf::Fix& fix, const Finding& finding) {
  Json replacements = Json::array();
  for (const input::bdf::TextEdit& edit : fix.edits) {
    replacements.push_back({{"deletedRegion", region(edit.range, finding.source)},
                            {"insertedContent", {{"text", edit.text}}}});
  }
  return {{"description", {{"text", fix.title}}},
          {"artifactChanges", Json::array({{{"artifactLocation", artifact_location(finding.file)},
                                            {"replacements", std::move(replacements)}}})}};
}

Json related_locations(const Finding& finding) {
  Json list = Json::array();
  for (const input::bdf::RelatedRange& related : finding.diagnostic.related) {
    Json made = location(related.range, finding);
    made["id"] = list.size() + 1;
    made["message"] = {{"text", related.message}};
    list.push_back(std::move(made));
  }
  return list;
}

// FNV-1a: it need not resist anybody, and must be the same on every system.
void mix(std::uint64_t& hash, std::string_view text) {
  constexpr std::uint64_t prime = 0x100000001B3;
  for (const char byte : text) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * prime;
  }
  hash = (hash ^ 0xFFU) * prime;
}

// Of what stays the same when other lines come and go, or the layout changes.
std::string fingerprint(const Finding& finding) {
  constexpr std::uint64_t basis = 0xCBF29CE484222325;
  std::uint64_t hash = basis;
  const Diagnostic& diagnostic = finding.diagnostic;
  mix(hash, diagnostic.code);
  mix(hash, diagnostic.path);
  for (const std::string& argument : diagnostic.arguments) {
    mix(hash, argument);
  }
  if (diagnostic.range) {
    mix(hash, finding.source.text_of(*diagnostic.range));
  }
  return fmt::format("{:016x}", hash);
}

Json result_json(const Finding& finding) {
  const Diagnostic& diagnostic = finding.diagnostic;
  Json result = {{"ruleId", diagnostic.code},
                 {"level", to_string(diagnostic.severity)},
                 {"message", {{"text", diagnostic.message}}},
                 {"locations", Json::array({location(diagnostic.range, finding)})}};
  if (!diagnostic.related.empty()) {
    result["relatedLocations"] = related_locations(finding);
  }
  if (!diagnostic.fixes.empty()) {
    result["fixes"] = list_of(diagnostic.fixes,
                              [&](const input::bdf::Fix& fix) { return fix_json(fix, finding); });
  }
  result["properties"] = {{"path", text_or_null(diagnostic.path)},
                          {"label", text_or_null(diagnostic.label)},
                          {"arguments", diagnostic.arguments},
                          {"help", diagnostic.help},
                          {"suggestions", diagnostic.suggestions}};
  return result;
}

Json rule_json(const std::string& code) {
  const input::bdf::FindingText* const text = input::bdf::find_finding_text(code);
  if (text == nullptr) {
    return {{"id", code}};
  }
  return {{"id", code},
          {"shortDescription", {{"text", text->meaning}}},
          {"help", {{"text", fmt::format("{}\n\n{}", text->cause, text->fix)}}},
          {"defaultConfiguration", {{"level", to_string(text->severity)}}}};
}

class SarifForm : public FindingsReport {
 public:
  WrittenFinding write(const Finding& finding) const override {
    std::string text = json_line(result_json(finding));
    // `add` ends the record.
    text.pop_back();
    return {std::move(text), finding.diagnostic.code, fingerprint(finding), finding.fails};
  }

  std::string begin() override {
    return fmt::format(
        "{{\n\"$schema\": \"{}\",\n\"version\": \"2.1.0\",\n\"runs\": [{{\n"
        "\"columnKind\": \"unicodeCodePoints\",\n\"results\": [",
        schema_address);
  }

  std::string begin_file(std::string_view /*file*/) override {
    seen_.clear();
    return {};
  }

  // Of several findings that are alike in one file each has a number, too.
  std::string add(const WrittenFinding& finding) override {
    const std::string before = codes_.empty() ? "\n" : ",\n";
    codes_.insert(finding.code);
    return fmt::format("{}{},\"partialFingerprints\":{{\"{}\":\"{}:{}\"}}}}", before, finding.text,
                       fingerprint_name, finding.fingerprint, ++seen_[finding.fingerprint]);
  }

  std::string fail(const std::string& reason) override {
    notifications_.push_back({{"level", "error"}, {"message", {{"text", reason}}}});
    return {};
  }

  std::string end(const Totals& /*totals*/) override {
    const Json bases = {
        {source_root, {{"description", {{"text", "the folder that the command was run in"}}}}}};
    Json invocation = {{"executionSuccessful", notifications_.empty()}};
    if (!notifications_.empty()) {
      invocation["toolExecutionNotifications"] = notifications_;
    }
    return fmt::format(
        "{}],\n\"originalUriBaseIds\": {},\n\"invocations\": [{}],\n\"tool\": {}\n}}]\n}}\n",
        codes_.empty() ? "" : "\n", json_line(bases), json_line(invocation),
        json_line({{"driver", driver()}}));
  }

  bool is_data() const override { return true; }

 private:
  Json driver() const {
    Json rules = Json::array();
    for (const std::string& code : codes_) {
      rules.push_back(rule_json(code));
    }
    const std::string version = input::bdf::library_version();
    return {{"name", "kelp-bdf"},
            {"version", version},
            {"semanticVersion", version},
            {"rules", std::move(rules)}};
  }

  std::set<std::string> codes_;
  std::map<std::string, std::size_t> seen_;
  Json notifications_ = Json::array();
};

}  // namespace

std::unique_ptr<FindingsReport> make_sarif_report() {
  return std::make_unique<SarifForm>();
}

}  // namespace kelp::app
