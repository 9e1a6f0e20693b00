#include "deck/package/package.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

#include "base/error.h"
#include "deck/package/content_types.h"
#include "deck/package/namespaces.h"
#include "deck/package/part_name.h"
#include "deck/package/xml_text.h"
#include "deck/package/zip_archive.h"
#include "platform/atomic_file.h"

namespace vellumark::deck {

struct Package::State {
  Limits limits;
  std::unique_ptr<ZipArchive> archive;  ///< none for a package that was never saved
  std::unique_ptr<ContentTypes> contentTypes;
  std::unique_ptr<Relationships> relationships;
  std::vector<PartRef> parts;  ///< in the order of the file, then of adding
  std::unordered_map<std::string, PartRef> byName;
  /// Entries by name, those that are no parts (.rels) among them; of two with one name the first counts.
  std::unordered_map<std::string, std::size_t> entries;
  bool partsChanged = false;  ///< some were added or removed

  void checkDirectory(const std::string& path) const;
  void indexEntries();
};

namespace {

bool isRelationshipsPart(std::string_view name) {
  return name.ends_with(".rels") &&
         (name.starts_with("_rels/") || name.find("/_rels/") != std::string_view::npos);
}

bool isFolder(std::string_view name) { return name.ends_with('/'); }

}  // namespace

void Package::State::checkDirectory(const std::string& path) const {
  const auto& all = archive->entries();
  if (all.size() > limits.parts)
    throw FormatError(path, "has more than " + std::to_string(limits.parts) + " parts");
  std::uint64_t total = 0;
  for (const ZipEntry& entry : all) {
    if (!isFolder(entry.name) && !isPartName(entry.name)) {
      throw FormatError(path, "holds an entry '" + entry.name + "', whose name leads out of the package");
    }
    constexpr std::uint64_t worthLooking = 1 << 20;
    const std::uint64_t most = std::max<std::uint64_t>(entry.compressedSize, 1) * limits.inflationRatio;
    if (entry.size > limits.partBytes || (entry.size > worthLooking && entry.size > most)) {
      throw FormatError(entry.name, "is out of all proportion: " + std::to_string(entry.compressedSize) +
                                        " bytes that unpack to " + std::to_string(entry.size));
    }
    total += entry.size;
    if (total > limits.totalBytes) {
      throw FormatError(path, "unpacks to more than " + std::to_string(limits.totalBytes >> 20) + " MiB");
    }
  }
}

void Package::State::indexEntries() {
  entries.clear();
  const auto& all = archive->entries();
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (!isFolder(all[i].name)) entries.emplace(partKey(all[i].name), i);
  }
}

Package::Package() : state_(std::make_unique<State>()) {}
Package::~Package() = default;

std::unique_ptr<Package> Package::open(const std::string& path, const Limits& limits) {
  std::unique_ptr<Package> package(new Package);
  State& state = *package->state_;
  state.limits = limits;
  state.archive = std::make_unique<ZipArchive>(path);
  state.checkDirectory(path);
  state.indexEntries();
  const auto types = state.entries.find(partKey(ContentTypes::partName));
  if (types == state.entries.end()) {
    throw FormatError(path, "is a zip file but no Office file: it has no [Content_Types].xml");
  }
  state.contentTypes = std::make_unique<ContentTypes>(state.archive->read(types->second, limits.xmlBytes));
  const auto& all = state.archive->entries();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::string& name = all[i].name;
    const auto entry = state.entries.find(partKey(name));
    if (entry == state.entries.end() || entry->second != i || i == types->second || isRelationshipsPart(name))
      continue;
    PartRef part(new Part(*package, name, state.contentTypes->of(name)));
    part->entry_ = i;
    state.byName.emplace(partKey(name), part);
    state.parts.push_back(std::move(part));
  }
  state.relationships = package->readRelationships("");
  return package;
}

std::unique_ptr<Package> Package::create() {
  std::unique_ptr<Package> package(new Package);
  package->state_->contentTypes = std::make_unique<ContentTypes>();
  package->state_->relationships = std::make_unique<Relationships>("");
  return package;
}

PartRef Package::part(std::string_view name) {
  const auto found = state_->byName.find(partKey(name));
  return found == state_->byName.end() ? nullptr : found->second;
}

PartRef Package::requiredRoot(std::string_view type) {
  for (const Relationship& relationship : state_->relationships->all()) {
    if (!relationship.is(type) || relationship.external) continue;
    if (PartRef found = part(relationship.target)) return found;
    throw FormatError("_rels/.rels", "relationship " + relationship.id + " (" + std::string(type) +
                                         ") leads to a part that is not there: '" + relationship.target +
                                         "'");
  }
  throw FormatError("_rels/.rels", "has no relationship to the main part (" + std::string(type) +
                                       "): the file is no Office document");
}

std::vector<std::string> Package::partNames() const {
  std::vector<std::string> names;
  for (const PartRef& part : state_->parts) names.push_back(part->name());
  return names;
}

const std::vector<Relationship>& Package::relationships() { return state_->relationships->all(); }

std::string Package::relate(const Part& target, std::string_view type) {
  return state_->relationships->add(type, target.name(), false);
}

std::unique_ptr<Relationships> Package::readRelationships(const std::string& source) const {
  const auto entry = state_->entries.find(partKey(Relationships::partName(source)));
  if (entry == state_->entries.end()) return std::make_unique<Relationships>(source);
  return std::make_unique<Relationships>(
      source, state_->archive->read(entry->second, state_->limits.xmlBytes), state_->limits.relationships);
}

std::unique_ptr<pugi::xml_document> Package::parse(const Part& part) const {
  const std::string bytes =
      part.entry_ ? state_->archive->read(*part.entry_, state_->limits.xmlBytes) : part.added_;
  auto document = parseXml(part.name(), bytes, state_->limits.xmlDepth);
  // A text in another encoding is not looked at but walked.
  const bool utf8 = bytes.starts_with('<') || bytes.starts_with("\xEF\xBB\xBF");
  if (!utf8 || hasUnusualPrefixes(bytes)) makePrefixesUsual(document->document_element());
  return document;
}

std::string Package::read(const Part& part) const {
  return state_->archive->read(*part.entry_, state_->limits.partBytes);
}

PartRef Package::add(const std::string& name, const std::string& contentType) {
  PartRef part(new Part(*this, name, contentType));
  state_->contentTypes->set(name, contentType);
  state_->byName.emplace(partKey(name), part);
  state_->parts.push_back(part);
  state_->partsChanged = true;
  // A part of that name that was removed before may have left its relationships in the file.
  part->relationships_ = std::make_unique<Relationships>(name);
  return part;
}

PartRef Package::addXml(const std::string& name, const std::string& contentType, std::string_view xml) {
  auto document = parseXml(name, xml, state_->limits.xmlDepth);
  PartRef part = add(name, contentType);
  part->document_ = std::move(document);
  part->changed_ = true;
  return part;
}

PartRef Package::addBytes(const std::string& name, const std::string& contentType, std::string bytes) {
  PartRef part = add(name, contentType);
  part->added_ = std::move(bytes);
  part->changed_ = true;
  return part;
}

std::string Package::freeName(const std::string& pattern) const {
  const std::size_t place = pattern.find("%d");
  for (std::size_t number = 1;; ++number) {
    std::string name = pattern;
    name.replace(place, 2, std::to_string(number));
    // The name of a part that was removed stays taken until the file is written: its entry still holds that
    // part.
    if (!state_->byName.contains(partKey(name)) && !state_->entries.contains(partKey(name))) return name;
  }
}

void Package::remove(const PartRef& part) {
  if (part->removed_) return;
  // What the part leads to, directly or not, goes along unless the package still leads to it without that
  // part.
  std::set<Part*> leftBehind;
  std::vector<PartRef> todo{part};
  while (!todo.empty()) {
    const PartRef next = todo.back();
    todo.pop_back();
    if (!leftBehind.insert(next.get()).second) continue;
    for (const Relationship& relationship : next->relationships()) {
      if (PartRef target = next->target(relationship)) todo.push_back(std::move(target));
    }
  }
  std::set<Part*> reached{part.get()};
  for (const Relationship& relationship : state_->relationships->all()) {
    if (PartRef target = relationship.external ? nullptr : this->part(relationship.target))
      todo.push_back(target);
  }
  while (!todo.empty()) {
    const PartRef next = todo.back();
    todo.pop_back();
    if (!reached.insert(next.get()).second) continue;
    for (const Relationship& relationship : next->relationships()) {
      if (PartRef target = next->target(relationship)) todo.push_back(std::move(target));
    }
  }
  reached.erase(part.get());
  std::erase_if(state_->parts, [&](const PartRef& candidate) {
    if (!leftBehind.contains(candidate.get()) || reached.contains(candidate.get())) return false;
    candidate->removed_ = true;
    state_->contentTypes->remove(candidate->name());
    state_->byName.erase(partKey(candidate->name()));
    return true;
  });
  state_->partsChanged = true;
}

bool Package::changed() const {
  if (state_->partsChanged || state_->contentTypes->changed() || state_->relationships->changed())
    return true;
  return std::ranges::any_of(state_->parts, [](const PartRef& part) {
    return part->changed_ || (part->relationships_ && part->relationships_->changed());
  });
}

void Package::save(const std::string& path, bool adopt) {
  State& state = *state_;
  ZipWriter writer;
  std::set<std::string> written;
  const auto put = [&](const std::string& name, bool changed, const auto& text) {
    if (!written.insert(partKey(name)).second) return;
    const auto entry = state.entries.find(partKey(name));
    if (changed || entry == state.entries.end()) {
      writer.add(name, text());
    } else {
      writer.copy(*state.archive, entry->second);
    }
  };
  const auto putRelationships = [&](const std::string& source, const Relationships* relationships) {
    const std::string name = Relationships::partName(source);
    const bool changed = relationships && relationships->changed();
    if (changed ? relationships->all().empty() : !state.entries.contains(partKey(name))) return;
    put(name, changed, [&] { return relationships->text(); });
  };
  const auto putPart = [&](const PartRef& part) {
    put(part->name(), part->changed_, [&] { return part->bytes(); });
  };

  put(ContentTypes::partName, state.contentTypes->changed(), [&] { return state.contentTypes->text(); });
  // The rest stands in the order of the file, with what is new behind it.
  if (state.archive) {
    std::unordered_map<std::string, PartRef> sources;
    for (const PartRef& part : state.parts)
      sources.emplace(partKey(Relationships::partName(part->name())), part);
    for (const ZipEntry& entry : state.archive->entries()) {
      const std::string key = partKey(entry.name);
      if (const auto part = state.byName.find(key); part != state.byName.end()) {
        putPart(part->second);
      } else if (const auto source = sources.find(key); source != sources.end()) {
        putRelationships(source->second->name(), source->second->relationships_.get());
      } else if (key == "_rels/.rels") {
        putRelationships("", state.relationships.get());
      }
    }
  }
  putRelationships("", state.relationships.get());
  for (const PartRef& part : state.parts) {
    putPart(part);
    putRelationships(part->name(), part->relationships_.get());
  }

  std::unique_ptr<ZipArchive> saved;
  try {
    platform::AtomicFile file(path);
    writer.write(file.temporaryPath());
    if (adopt) saved = std::make_unique<ZipArchive>(file.temporaryPath());
    file.commit();
  } catch (const base::Error& error) {
    throw FormatError(path, error.description());
  }
  if (!adopt) return;

  state.archive = std::move(saved);
  state.indexEntries();
  state.partsChanged = false;
  state.contentTypes->unchanged();
  state.relationships->unchanged();
  for (const PartRef& part : state.parts) {
    part->entry_ = state.entries.at(partKey(part->name()));
    part->added_ = {};
    part->changed_ = false;
    if (part->relationships_) part->relationships_->unchanged();
  }
}

}  // namespace vellumark::deck
