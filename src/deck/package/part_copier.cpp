#include "deck/package/part_copier.h"

#include <algorithm>
#include <string_view>

#include "deck/package/namespaces.h"

namespace vellumark::deck {
namespace {

constexpr std::string_view xmlTypeEnd = "xml";

bool isMedia(Part& part) {
  const std::string_view type = part.contentType();
  const bool media = type.starts_with("image/") || type.starts_with("audio/") || type.starts_with("video/");
  return media && part.relationships().empty();
}

/// Whether a part is none of a shape or slide but of the whole presentation.
bool belongsToPresentation(const Part& part) {
  constexpr std::string_view types[] = {".main+xml",          ".slide+xml",          ".slideLayout+xml",
                                        ".slideMaster+xml",   ".notesSlide+xml",     ".notesMaster+xml",
                                        ".handoutMaster+xml", ".commentAuthors+xml", ".authors+xml",
                                        ".presProps+xml",     ".viewProps+xml",      ".tableStyles+xml"};
  return std::ranges::any_of(types, [&](std::string_view end) { return part.contentType().ends_with(end); });
}

/// Comments name their authors by numbers of their own presentation.
bool isComments(const Part& part) {
  return part.contentType().ends_with(".comments+xml") ||
         part.contentType() == "application/vnd.ms-powerpoint.comments+xml";
}

/// The pattern for names of copies: "ppt/media/image12.png" gives "ppt/media/image%d.png".
std::string patternOf(const std::string& name) {
  const std::size_t slash = name.rfind('/');
  const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
  const std::size_t dot = name.rfind('.');
  const bool extended = dot != std::string::npos && dot > begin;
  std::string stem = name.substr(0, extended ? dot : std::string::npos);
  while (stem.size() > begin && stem.back() >= '0' && stem.back() <= '9') stem.pop_back();
  std::ranges::replace(stem, '%', '_');
  std::string extension = extended ? name.substr(dot) : "";
  std::ranges::replace(extension, '%', '_');
  return stem + "%d" + extension;
}

}  // namespace

void SharedMedia::note(const PartRef& one, const PartRef& same) {
  std::erase_if(pairs_, [](const Pair& pair) { return pair.one.expired() || pair.same.expired(); });
  pairs_.push_back({one, same});
}

PartRef SharedMedia::in(const Package& package, const PartRef& media) const {
  const auto here = [&](const PartRef& part) {
    return part && !part->removed() && &part->package() == &package;
  };
  for (const Pair& pair : pairs_) {
    const PartRef one = pair.one.lock(), same = pair.same.lock();
    if (one == media && here(same)) return same;
    if (same == media && here(one)) return one;
  }
  return nullptr;
}

PartRef PartCopier::copyAlone(const PartRef& source) {
  const std::string name = to_.freeName(patternOf(source->name()));
  const std::string& type = source->contentType();
  const bool strict = to_.isStrict();
  if (type.ends_with(xmlTypeEnd) && source->package().isStrict() != strict) {
    PartRef target = to_.addXml(name, type, source->bytes());
    makeFamily(target->root(), strict);
    return target;
  }
  return to_.addBytes(name, type.empty() ? "application/octet-stream" : type, source->bytes());
}

/// A copy is known before its relationships are made, so that a ring of parts comes to its end, and the
/// relationships are made one part after the other: a long chain needs no deep stack.
PartRef PartCopier::counterpart(const PartRef& source) {
  if (const auto found = known_.find(source); found != known_.end()) return found->second;
  const bool within = &source->package() == &to_;
  if (belongsToPresentation(*source)) return within ? source : nullptr;
  if (isComments(*source) && !within) return nullptr;
  PartRef target;
  const bool media = isMedia(*source);
  if (media) target = within ? source : media_ ? media_->in(to_, source) : nullptr;
  if (!target) {
    target = copyAlone(source);
    if (media && media_) media_->note(source, target);
    if (!media) tasks_.push_back({source, target});
  }
  known_[source] = target;
  return target;
}

std::string PartCopier::relateOne(Part& source, const Relationship& relationship, Part& target,
                                  const std::string& id) {
  const std::string type = inFamily(relationship.type, to_.isStrict());
  if (relationship.external) {
    if (id.empty()) return target.relateExternal(relationship.target, type);
    target.relateExternalAs(id, relationship.target, type);
    return id;
  }
  const PartRef part = source.target(relationship);
  const PartRef copy = part ? counterpart(part) : nullptr;
  if (!copy) return {};
  if (id.empty()) return target.relate(*copy, type);
  target.relateAs(id, *copy, type);
  return id;
}

void PartCopier::finish() {
  while (!tasks_.empty()) {
    const Task task = std::move(tasks_.back());
    tasks_.pop_back();
    for (const Relationship& relationship : task.source->relationships()) {
      // Of two with one id, which a broken file may have, the first counts.
      if (task.target->relationship(relationship.id)) continue;
      if (relateOne(*task.source, relationship, *task.target, relationship.id).empty()) {
        leftOut_[task.target].push_back(relationship.id);
      }
    }
  }
}

PartRef PartCopier::copy(const PartRef& source) {
  PartRef target = counterpart(source);
  finish();
  return target;
}

PartRef PartCopier::copyAnew(const PartRef& source) {
  PartRef target = copyAlone(source);
  known_[source] = target;
  tasks_.push_back({source, target});
  finish();
  return target;
}

std::string PartCopier::relate(Part& source, const Relationship& relationship, Part& target,
                               const std::string& id) {
  std::string made = relateOne(source, relationship, target, id);
  finish();
  return made;
}

std::vector<std::string> PartCopier::leftOut(const PartRef& copy) const {
  const auto found = leftOut_.find(copy);
  return found == leftOut_.end() ? std::vector<std::string>() : found->second;
}

}  // namespace vellumark::deck
