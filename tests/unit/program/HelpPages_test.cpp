// The pages in help/ hang together: contents, index, links and context numbers lead somewhere.

#include "program/HelpContexts.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path Folder = fs::path(QUIB_SOURCE_DIR) / "help";

constexpr std::array AllContexts = {
    HelpContext::UsingHelp, HelpContext::Index,       HelpContext::AddKey,   HelpContext::MainMenu,
    HelpContext::Find,      HelpContext::Description, HelpContext::Topics,   HelpContext::Stepper,
    HelpContext::Create,    HelpContext::Load,        HelpContext::Edit,     HelpContext::Timer,
    HelpContext::Overview,  HelpContext::Print,       HelpContext::MoreKeys, HelpContext::Keys,
};

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> Pages() {
  std::vector<fs::path> pages;
  for (const auto& entry : fs::directory_iterator(Folder)) {
    if (entry.path().extension() == ".html") pages.push_back(entry.path());
  }
  std::sort(pages.begin(), pages.end());
  return pages;
}

/// What the first group of `pattern` holds at each of its places in `text`.
std::vector<std::string> AllMatches(const std::string& text, const std::string& pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
       ++match) {
    found.push_back((*match)[1].str());
  }
  return found;
}

std::string FirstMatch(const std::string& text, const std::string& pattern) {
  const std::vector<std::string> found = AllMatches(text, pattern);
  return found.empty() ? std::string() : found.front();
}

std::string PageOf(const std::string& address) { return address.substr(0, address.find('#')); }

/// Whether there is a page at an address and, if it names one, the place on it.
bool Resolves(const std::string& address, const fs::path& from) {
  const std::string name = PageOf(address);
  const fs::path page = name.empty() ? from : Folder / name;
  if (!fs::exists(page)) return false;
  const std::size_t hash = address.find('#');
  return hash == std::string::npos ||
         ReadFile(page).find("id=\"" + address.substr(hash + 1) + '"') != std::string::npos;
}

const std::string& Project() {
  static const std::string project = ReadFile(Folder / "quib.qhp");
  return project;
}

TEST(HelpPages, EveryContextHasAPage) {
  for (const HelpContext context : AllContexts) {
    const std::string id = std::to_string(static_cast<int>(context));
    const std::string page = FirstMatch(Project(), " id=\"" + id + "\" ref=\"([^\"]*)\"");
    EXPECT_FALSE(page.empty()) << "no page for context " << id;
    EXPECT_TRUE(Resolves(page, {})) << id << " leads to " << page;
  }
}

TEST(HelpPages, EveryContextIsInTheTableAbove) {
  const std::string header = ReadFile(fs::path(QUIB_SOURCE_DIR) / "program" / "HelpContexts.h");
  const std::vector<std::string> numbers = AllMatches(header, "= ([0-9]+),");
  EXPECT_EQ(numbers.size(), AllContexts.size());
}

TEST(HelpPages, NoContextHasTwoPages) {
  std::vector<std::string> ids = AllMatches(Project(), " id=\"([^\"]*)\"");
  EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size());
}

TEST(HelpPages, EveryEntryOfContentsAndIndexLeadsToAPlace) {
  for (const std::string& address : AllMatches(Project(), " ref=\"([^\"]*)\"")) {
    EXPECT_TRUE(Resolves(address, {})) << address;
  }
}

TEST(HelpPages, NoCatchwordStandsTwiceInTheIndex) {
  std::set<std::string> seen;
  for (const std::string& name : AllMatches(Project(), "<keyword name=\"([^\"]*)\"")) {
    EXPECT_TRUE(seen.insert(name).second) << name;
  }
  EXPECT_FALSE(seen.empty());
}

TEST(HelpPages, EveryLinkLeadsToAPlace) {
  for (const fs::path& page : Pages()) {
    for (const std::string& address : AllMatches(ReadFile(page), "href=\"([^\"]*)\"")) {
      EXPECT_TRUE(Resolves(address, page)) << page.filename() << " links to " << address;
    }
  }
}

TEST(HelpPages, EveryPageIsInTheContents) {
  std::set<std::string> listed;
  for (const std::string& address : AllMatches(Project(), "<section [^>]*ref=\"([^\"]*)\"")) {
    listed.insert(PageOf(address));
  }
  for (const fs::path& page : Pages()) {
    EXPECT_TRUE(listed.contains(page.filename().string())) << page.filename();
  }
}

TEST(HelpPages, EveryPageCanBeReachedFromTheStartPage) {
  std::set<std::string> reached = {"index.html"};
  std::vector<std::string> open = {"index.html"};
  while (!open.empty()) {
    const std::string page = open.back();
    open.pop_back();
    for (const std::string& address :
         AllMatches(ReadFile(Folder / page), "href=\"([^\"]*\\.html[^\"]*)\"")) {
      if (reached.insert(PageOf(address)).second) open.push_back(PageOf(address));
    }
  }
  EXPECT_EQ(reached.size(), Pages().size());
}

TEST(HelpPages, TitleAndHeadingAgree) {
  for (const fs::path& page : Pages()) {
    const std::string text = ReadFile(page);
    EXPECT_FALSE(FirstMatch(text, "<title>([^<]*)</title>").empty()) << page.filename();
    EXPECT_EQ(FirstMatch(text, "<title>([^<]*)</title>"), FirstMatch(text, "<h1>([^<]*)</h1>"));
  }
}

TEST(HelpPages, LeaveTheColoursToTheDesktop) {
  const std::regex colour("color\\s*[:=]|background\\s*[:=]", std::regex::icase);
  for (const fs::path& page : Pages()) {
    EXPECT_FALSE(std::regex_search(ReadFile(page), colour)) << page.filename();
  }
  EXPECT_FALSE(std::regex_search(ReadFile(Folder / "help.css"), colour));
}

}  // namespace
