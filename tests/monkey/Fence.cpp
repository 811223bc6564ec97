#include "tests/monkey/Fence.h"

#include <cstdint>
#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr std::uint64_t Writing = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                  LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                                  LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
                                  LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                  LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;

bool Allow(int rules, const char* path, std::uint64_t access) {
  const int place = ::open(path, O_PATH | O_CLOEXEC);
  if (place < 0) return false;
  landlock_path_beneath_attr rule{};
  rule.allowed_access = access;
  rule.parent_fd = place;
  const bool added =
      ::syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
  ::close(place);
  return added;
}

}  // namespace

bool AllowWritingOnlyBelow(const std::string& folder) {
  landlock_ruleset_attr attributes{};
  attributes.handled_access_fs = Writing;
  const auto rules = static_cast<int>(
      ::syscall(SYS_landlock_create_ruleset, &attributes, sizeof(attributes.handled_access_fs), 0));
  if (rules < 0) return false;
  const bool fenced = Allow(rules, folder.c_str(), Writing) &&
                      Allow(rules, "/dev/null", LANDLOCK_ACCESS_FS_WRITE_FILE) &&
                      ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
                      ::syscall(SYS_landlock_restrict_self, rules, 0) == 0;
  ::close(rules);
  return fenced;
}
