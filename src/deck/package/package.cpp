#include "deck/package/package.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
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
  /// Entries by key, those that are no parts (.rels) among them; of two with one name the first counts.
  std::unordered_map<std::string, std::size_t> entries;
  /// Below these numbers no name of a pattern is free; none becomes free before the file is written.
  std::unordered_map<std::string, std::size_t> lowestFree;
  bool partsChanged = false;    ///< some were added or removed
  std::uint64_t fileBytes = 0;  ///< size of the file
  // What was parsed of the file so far.
  std::uint64_t xmlBytes = 0;
  std::uint64_t xmlItems = 0;

  void checkDirectory(const std::string& path) const;
  void indexEntries();
  std::string read(std::size_t entry, std::uint64_t limit) const;
  std::string readXml(std::size_t entry);
  void settleRelationshipTypes();
  void collect(ZipWriter& writer) const;
  void exchange(platform::AtomicFile& file, ZipArchive& saved, const std::string& path) const;
};

namespace {

bool isFolder(std::string_view name) { return name.ends_with('/'); }

/// Parses a part and brings its prefixes to the usual ones.
std::unique_ptr<pugi::xml_document> parsePart(const std::string& name, std::string_view bytes,
                                              const Limits& limits) {
  auto document = parseXml(name, bytes, limits.xmlDepth);
  // A text in another encoding is not looked at but walked.
  const bool utf8 = bytes.starts_with('<') || bytes.starts_with("\xEF\xBB\xBF");
  if (!utf8 || hasUnusualPrefixes(bytes)) makePrefixesUsual(document->document_element());
  return document;
}

/// The parts that some lead to, directly or not, themselves among them; without those in `reached` already.
void follow(std::vector<PartRef> todo, std::unordered_set<Part*>& reached) {
  while (!todo.empty()) {
    const PartRef part = std::move(todo.back());
    todo.pop_back();
    if (!reached.insert(part.get()).second) continue;
    for (const Relationship& relationship : part->relationships()) {
      if (PartRef target = part->target(relationship)) todo.push_back(std::move(target));
    }
  }
}

}  // namespace

void Package::State::checkDirectory(const std::string& path) const {
  const auto& all = archive->entries();
  if (all.size() > limits.parts) {
    throw FormatError(path, "has more than " + std::to_string(limits.parts) + " parts");
  }
  for (const ZipEntry& entry : all) {
    if (!isFolder(entry.name) && !isPartName(entry.name)) {
      throw FormatError(path, "holds an entry '" + entry.name + "', which is no safe name of a part");
    }
    if (entry.encrypted) {
      throw FormatError(path, "is protected by a password ('" + entry.name +
                                  "' is encrypted); save it as .pptx without one first");
    }
  }
}

/// An entry's bytes; the limits hold for what is read, not for what is only copied.
std::string Package::State::read(std::size_t entry, std::uint64_t limit) const {
  const ZipEntry& info = archive->entries()[entry];
  constexpr std::uint64_t worthLooking = 1 << 20;
  if (info.size > worthLooking &&
      info.size / limits.inflationRatio >= std::max<std::uint64_t>(info.compressedSize, 1)) {
    throw FormatError(info.name, "is out of all proportion: " + std::to_string(info.compressedSize) +
                                     " bytes that unpack to " + std::to_string(info.size));
  }
  return archive->read(entry, limit);
}

/// The text of an entry that is to be parsed: a tree takes far more memory than its text, and many parts
/// together no less than one.
std::string Package::State::readXml(std::size_t entry) {
  std::string text = read(entry, limits.xmlBytes);
  xmlBytes += text.size();
  xmlItems += countXmlItems(text);
  const auto check = [&](std::uint64_t used, const Limits::InAll& limit, const char* what) {
    const std::uint64_t most = std::min(limit.base + limit.perByte * fileBytes, limit.most);
    if (used <= most) return;
    throw FormatError(archive->entries()[entry].name,
                      "is too much: the XML of the file has more than " + std::to_string(most) + what);
  };
  check(xmlBytes, limits.allXmlBytes, " bytes");
  check(xmlItems, limits.allXmlItems, " elements, attributes and texts");
  return text;
}

void Package::State::indexEntries() {
  fileBytes = archive->fileBytes();
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
  state.contentTypes = std::make_unique<ContentTypes>(state.readXml(types->second));
  const auto& all = state.archive->entries();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::string key = partKey(all[i].name);
    const auto entry = state.entries.find(key);
    const bool counts = entry != state.entries.end() && entry->second == i;
    if (!counts || i == types->second || Relationships::sourceOf(key)) continue;
    PartRef part(new Part(*package, all[i].name, state.contentTypes->of(all[i].name)));
    part->entry_ = i;
    state.byName.emplace(key, part);
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

PartRef Package::root(std::string_view type) {
  for (const Relationship& relationship : state_->relationships->all()) {
    if (relationship.is(type) && !relationship.external) return part(relationship.target);
  }
  return nullptr;
}

void Package::removeRoot(std::string_view type) {
  const PartRef gone = root(type);
  if (!gone) return;
  const auto& all = state_->relationships->all();
  state_->relationships->remove(
      std::ranges::find_if(all, [&](const Relationship& one) { return one.is(type) && !one.external; })->id);
  remove(gone);
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
  names.reserve(state_->parts.size());
  for (const PartRef& part : state_->parts) names.push_back(part->name());
  return names;
}

const std::vector<Relationship>& Package::relationships() { return state_->relationships->all(); }

std::string Package::relate(const Part& target, std::string_view type) {
  return state_->relationships->add(wholeType(type), target.name(), false);
}

bool Package::isStrict() const {
  return std::ranges::any_of(state_->relationships->all(),
                             [](const Relationship& one) { return isStrictRelationship(one.type); });
}

std::string Package::wholeType(std::string_view type) const {
  return type.find(':') == std::string_view::npos ? relationshipType(type, isStrict()) : std::string(type);
}

std::unique_ptr<Relationships> Package::readRelationships(const std::string& source) const {
  const auto entry = state_->entries.find(partKey(Relationships::partName(source)));
  if (entry == state_->entries.end()) return std::make_unique<Relationships>(source);
  return std::make_unique<Relationships>(source, state_->readXml(entry->second),
                                         state_->limits.relationships);
}

std::unique_ptr<pugi::xml_document> Package::parse(const Part& part) const {
  const auto entry = entryOf(part);
  return parsePart(part.name(), entry ? state_->readXml(*entry) : part.added_, state_->limits);
}

std::string Package::readBytes(const Part& part) const {
  const auto entry = entryOf(part);
  return entry ? state_->read(*entry, state_->limits.partBytes) : part.added_;
}

std::optional<std::size_t> Package::entryOf(const Part& part) {
  // Its place may by now be that of something else, in another file.
  if (part.entry_ && part.removed_) throw FormatError(part.name(), "was taken out of the package");
  return part.entry_;
}

PartRef Package::draft(const std::string& name, const std::string& contentType) {
  if (!isPartName(name)) throw FormatError(name, "is no name that a part can have");
  PartRef part(new Part(*this, name, contentType));
  if (!state_->byName.emplace(partKey(name), part).second) throw FormatError(name, "is there already");
  // None, even if a part of that name that was removed has left some in the file.
  part->relationships_ = std::make_unique<Relationships>(name);
  part->changed_ = true;
  return part;
}

void Package::adopt(const PartRef& draft) {
  state_->contentTypes->set(draft->name(), draft->contentType());
  state_->parts.push_back(draft);
  state_->partsChanged = true;
}

void Package::retype(const PartRef& part, const std::string& contentType) {
  part->contentType_ = contentType;
  state_->contentTypes->set(part->name(), contentType);
}

PartRef Package::add(const std::string& name, const std::string& contentType) {
  PartRef part = draft(name, contentType);
  adopt(part);
  return part;
}

std::unique_ptr<pugi::xml_document> Package::parseNew(const std::string& name, std::string_view xml) const {
  auto document = parsePart(name, xml, state_->limits);
  if (isStrict()) makeFamily(document->document_element(), true);
  return document;
}

PartRef Package::draftXml(const std::string& name, const std::string& contentType, std::string_view xml) {
  auto document = parseNew(name, xml);
  PartRef part = draft(name, contentType);
  part->document_ = std::move(document);
  return part;
}

PartRef Package::addXml(const std::string& name, const std::string& contentType, std::string_view xml) {
  PartRef part = draftXml(name, contentType, xml);
  adopt(part);
  return part;
}

PartRef Package::addBytes(const std::string& name, const std::string& contentType, std::string bytes) {
  PartRef part = add(name, contentType);
  part->added_ = std::move(bytes);
  return part;
}

std::string Package::freeName(const std::string& pattern) const {
  const std::size_t place = pattern.find("%d");
  std::size_t& number = state_->lowestFree.try_emplace(pattern, 1).first->second;
  for (;; ++number) {
    std::string name = pattern;
    name.replace(place, 2, std::to_string(number));
    // The name of a part that was removed stays taken until the file is written, so that links to the old
    // part that somebody forgot don't lead to a new one.
    if (!state_->byName.contains(partKey(name)) && !state_->entries.contains(partKey(name))) return name;
  }
}

void Package::keepUnreachable(std::unordered_set<Part*>& parts, Part* without) {
  std::vector<PartRef> others;
  for (const Relationship& relationship : state_->relationships->all()) {
    if (PartRef target = relationship.external ? nullptr : part(relationship.target)) {
      others.push_back(std::move(target));
    }
  }
  std::ranges::copy_if(state_->parts, std::back_inserter(others),
                       [&](const PartRef& other) { return !parts.contains(other.get()); });
  std::unordered_set<Part*> reached;
  if (without) reached.insert(without);
  follow(std::move(others), reached);
  std::erase_if(parts, [&](Part* one) { return reached.contains(one); });
}

void Package::erase(const std::unordered_set<Part*>& parts) {
  if (parts.empty()) return;
  std::erase_if(state_->parts, [&](const PartRef& candidate) {
    if (!parts.contains(candidate.get())) return false;
    candidate->removed_ = true;
    state_->contentTypes->remove(candidate->name());
    state_->contentTypes->remove(Relationships::partName(candidate->name()));
    state_->byName.erase(partKey(candidate->name()));
    return true;
  });
  state_->partsChanged = true;
}

void Package::remove(const PartRef& part) {
  if (part->removed_) return;
  std::unordered_set<Part*> gone;
  follow({part}, gone);
  gone.erase(part.get());
  if (!gone.empty()) keepUnreachable(gone, part.get());
  gone.insert(part.get());
  erase(gone);
}

void Package::removeUnreachable(const std::vector<PartRef>& parts) {
  std::unordered_set<Part*> gone;
  for (const PartRef& part : parts) {
    if (!part->removed_) follow({part}, gone);
  }
  if (gone.empty()) return;
  keepUnreachable(gone);
  erase(gone);
}

bool Package::changed() const {
  if (state_->partsChanged || state_->contentTypes->changed() || state_->relationships->changed()) {
    return true;
  }
  return std::ranges::any_of(state_->parts, [](const PartRef& part) {
    return part->changed_ || (part->relationships_ && part->relationships_->changed());
  });
}

/// Declares .rels parts that are new to the file. Some files name each by itself instead of by its extension.
void Package::State::settleRelationshipTypes() {
  for (const PartRef& part : parts) {
    if (!part->relationships_ || !part->relationships_->changed()) continue;
    const std::string name = Relationships::partName(part->name());
    if (part->relationships_->all().empty()) {
      contentTypes->remove(name);
    } else {
      contentTypes->set(name, Relationships::contentType);
    }
  }
}

/// Puts what the saved file is to hold into the order of the old one, with what is new behind it.
void Package::State::collect(ZipWriter& writer) const {
  std::unordered_set<std::string> written;
  const auto put = [&](const std::string& name, bool changed, const auto& text) {
    const std::string key = partKey(name);
    if (!written.insert(key).second) return;
    if (changed) {
      writer.add(name, text());
    } else {
      writer.copy(*archive, entries.at(key));
    }
  };
  const auto putPart = [&](const PartRef& part) {
    put(part->name(), part->changed_, [&] { return part->bytes(); });
  };
  // `stood`: the source is one of the file, and its relationships may be as well.
  const auto putRelationships = [&](const std::string& source, bool stood, const Relationships* now) {
    const std::string name = Relationships::partName(source);
    const bool changed = now && now->changed();
    const bool any = changed ? !now->all().empty() : stood && entries.contains(partKey(name));
    if (any) put(name, changed, [&] { return now->text(); });
  };
  const auto putRelationshipsOf = [&](const PartRef& part) {
    putRelationships(part->name(), part->entry_.has_value(), part->relationships_.get());
  };

  const auto putInPlace = [&](const std::string& name) {
    const std::string key = partKey(name);
    if (const auto part = byName.find(key); part != byName.end()) {
      return putPart(part->second);
    }
    const auto source = Relationships::sourceOf(key);
    if (!source) return;
    if (const auto part = byName.find(*source); part != byName.end()) {
      putRelationshipsOf(part->second);
    } else if (source->empty()) {
      putRelationships("", true, relationships.get());
    } else if (!entries.contains(*source)) {
      // Relationships of a part that never was: they came with the file and stay.
      put(name, false, [] { return std::string(); });
    }
  };

  put(ContentTypes::partName, contentTypes->changed(), [&] { return contentTypes->text(); });
  if (archive) {
    for (const ZipEntry& entry : archive->entries()) putInPlace(entry.name);
  }
  putRelationships("", archive != nullptr, relationships.get());
  for (const PartRef& part : parts) {
    putPart(part);
    putRelationshipsOf(part);
  }
}

/// Puts the written file in its place where the system leaves open files alone: nothing of ours is open
/// meanwhile.
void Package::State::exchange(platform::AtomicFile& file, ZipArchive& saved, const std::string& path) const {
  saved.close();
  if (archive) archive->close();
  try {
    file.commit();
  } catch (const base::Error&) {
    if (archive) archive->reopen();
    throw;
  }
  saved.reopen(path);
}

void Package::save(const std::string& path, bool adopt) {
  State& state = *state_;
  state.settleRelationshipTypes();
  ZipWriter writer;
  state.collect(writer);
  std::unique_ptr<ZipArchive> saved;
  try {
    platform::AtomicFile file(path);
    writer.write(file.temporaryPath(), path);
    if (adopt) saved = std::make_unique<ZipArchive>(file.temporaryPath());
    if (adopt && !platform::AtomicFile::replacesOpenFiles()) {
      state.exchange(file, *saved, path);
    } else {
      file.commit();
    }
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
