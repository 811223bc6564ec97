#include "base/DiskGroup.h"

#include "base/DiskNames.h"
#include "base/Paths.h"
#include "base/TemporaryFile.h"

#include <cstdio>
#include <set>

namespace {

/// A file on its way to its place.
struct Member {
  std::string target;
  std::string temporary;  // empty once it has taken its place
  std::string backup;     // the old file's second name; empty when there is none
  Takes takes = Takes::Target;
  bool hasOld = false;
  bool isMoved = false;  // the old file has no name but its second one
};

class Group {
 public:
  explicit Group(const std::vector<NewFile>& files) : m_files(files) {}
  Group(const Group&) = delete;
  Group& operator=(const Group&) = delete;
  ~Group() {
    for (const Member& member : m_members) {
      if (!member.temporary.empty()) ::unlink(member.temporary.c_str());
      if (!member.backup.empty()) ::unlink(member.backup.c_str());
    }
  }

  GroupResult Run() {
    GroupResult result;
    for (result.failed = 0; result.failed < m_files.size(); ++result.failed) {
      result.status = Stage(m_files[result.failed]);
      if (result.status != FileStatus::Ok) return result;
    }
    for (result.failed = 0; result.failed < m_members.size(); ++result.failed) {
      result.status = BackUp(m_members[result.failed]);
      if (result.status != FileStatus::Ok) return result;
    }
    for (result.failed = 0; result.failed < m_members.size(); ++result.failed) {
      result.status = Place(m_members[result.failed]);
      if (result.status == FileStatus::Ok) continue;
      for (std::size_t i = result.failed + 1; i-- > 0;) Undo(m_members[i], result.notUndone);
      return result;
    }
    for (const std::string& folder : m_folders) {
      FlushFolder(folder);
      RemoveLeftovers(folder);
    }
    return result;
  }

 private:
  FileStatus Stage(const NewFile& file) {
    if (NamesNoFile(file.path)) return FileStatus::IllegalName;
    Member member;
    member.target = EncodePath(file.path);
    member.takes = file.takes;
    FileStatus status =
        file.takes == Takes::Target ? FollowToTarget(member.target) : FileStatus::Ok;
    if (status != FileStatus::Ok) return status;
    // Two links to one file: the second content would silently take the place of the first.
    if (!m_targets.insert(member.target).second) return FileStatus::FileAlreadyOpen;
    std::optional<struct stat> old;
    if (status = LookAtMember(member, old); status != FileStatus::Ok) return status;
    const std::string folder = FolderOf(member.target);
    Descriptor temporary = MakeTemporary(folder, member.temporary);
    if (!temporary.IsOpen()) return StatusForPath(member.target, errno);
    m_folders.insert(folder);
    m_members.push_back(member);
    return FillTemporary(temporary, file.content, old);
  }

  /// Finds out what the member takes the place of; `old` is the file whose mode it keeps.
  static FileStatus LookAtMember(Member& member, std::optional<struct stat>& old) {
    struct stat info {};
    const bool isThere = ::lstat(member.target.c_str(), &info) == 0;
    if (isThere && member.takes == Takes::FreeName) return FileStatus::FileAlreadyExists;
    if (isThere && S_ISLNK(info.st_mode)) {  // the target of a link that is followed is none
      member.hasOld = true;
      return FileStatus::Ok;
    }
    const FileStatus status = LookAtTarget(member.target, old);
    member.hasOld = old.has_value();
    return status;
  }

  /// Gives a file a name that is free. Unlike a rename, a second name takes no other's place.
  static FileStatus PlaceNew(Member& member) {
    if (::link(member.temporary.c_str(), member.target.c_str()) == 0) {
      ::unlink(member.temporary.c_str());
      member.temporary.clear();
      return FileStatus::Ok;
    }
    if (!KnowsNoSecondNames(errno)) return StatusForPath(member.target, errno);
    struct stat info {};
    if (::lstat(member.target.c_str(), &info) == 0) return FileStatus::FileAlreadyExists;
    return PlaceByRename(member);
  }

  static FileStatus PlaceByRename(Member& member) {
    if (::rename(member.temporary.c_str(), member.target.c_str()) != 0) {
      return StatusForPath(member.target, errno);
    }
    member.temporary.clear();
    return FileStatus::Ok;
  }

  static bool KnowsNoSecondNames(int errorNumber) {
    return errorNumber == EPERM || errorNumber == EOPNOTSUPP || errorNumber == ENOSYS ||
           errorNumber == EMLINK;
  }

  static FileStatus BackUp(Member& member) {
    if (!member.hasOld) return FileStatus::Ok;
    const std::string backup = BackupName(member);
    if (::link(member.target.c_str(), backup.c_str()) == 0) {
      member.backup = backup;
      return FileStatus::Ok;
    }
    return KnowsNoSecondNames(errno) ? FileStatus::Ok : StatusForPath(member.target, errno);
  }

  static FileStatus Place(Member& member) {
    if (member.takes == Takes::FreeName) return PlaceNew(member);
    if (member.hasOld && member.backup.empty()) {
      const std::string backup = BackupName(member);
      if (::rename(member.target.c_str(), backup.c_str()) != 0) {
        return StatusForPath(member.target, errno);
      }
      member.backup = backup;
      member.isMoved = true;
    }
    return PlaceByRename(member);
  }

  static void Undo(Member& member, std::vector<Text>& notUndone) {
    const bool placed = member.temporary.empty();
    if (!placed && !member.isMoved) return;
    if (!member.hasOld) {
      if (::unlink(member.target.c_str()) != 0) notUndone.push_back(DecodePath(member.target));
      return;
    }
    bool isBack = ::rename(member.backup.c_str(), member.target.c_str()) == 0;
    if (isBack) {
      member.backup.clear();
      return;
    }
    // Another way for a disk that renames nothing any more.
    if (placed) ::unlink(member.target.c_str());
    isBack = ::link(member.backup.c_str(), member.target.c_str()) == 0;
    if (isBack) return;
    notUndone.push_back(DecodePath(member.backup));
    member.backup.clear();  // it stays: there is no other
  }

  static std::string BackupName(const Member& member) {
    constexpr std::size_t Letters = 6;
    return FolderOf(member.target) + "/.quib-old-" +
           member.temporary.substr(member.temporary.size() - Letters);
  }

  const std::vector<NewFile>& m_files;
  std::vector<Member> m_members;
  std::set<std::string> m_targets;
  std::set<std::string> m_folders;
};

}  // namespace

GroupResult ReplaceGroup(const std::vector<NewFile>& files) { return Group(files).Run(); }
