#include "bench/literal_scan.h"

#include <cstddef>

#include "crawl/crawl_state.h"
#include "extractor/admission.h"
#include "output/paths.h"
#include "output/records.h"
#include "setup/keyword_filters.h"

namespace literal {

namespace {

const char* const kLinkPatterns[] = {
    "href =",        "href = ",       "href=",         "HREF=",        "HREF = ",
    "HREF =",        "HREF= ",        "hRef=",         "hRef = ",      "hRef =",
    "hRef= ",        "Href=",         "Href = ",       "Href =",       "Href= ",
    "Href= ",        "hREF=",         "hREF = ",       "hREF =",       "hREF= ",
    "background =",  "background=",   "background = ", "background= ", "BACKGROUND =",
    "BACKGROUND=",   "BACKGROUND = ", "BACKGROUND= ",  "BackGround =", "BackGround=",
    "BackGround = ", "BackGround= ",  " SRC=",         " src=",        " SRC =",
    " src =",        " SRC = ",       " src = ",       " SRC= ",       " src= ",
};

const char* const kClimbs[] = {".info/..", ".tk/..",  ".uk/..",  ".au/..",  ".mil/..",
                               ".gov/..",  ".edu/..", ".org/..", ".net/..", ".com/.."};

bool Has(const std::string& s, const std::string& part) {
    return s.find(part) != std::string::npos;
}

/// The text from this position on, counted from 1.
std::string From(const std::string& s, std::size_t position) {
    return position > s.size() ? "" : s.substr(position - 1);
}

std::string LastCharacter(const std::string& s) {
    return Trim(s).empty() ? "" : s.substr(s.size() - 1);
}

std::string CutAt(const std::string& s, const std::string& ends) {
    std::string cut;
    for (const char c : s) {
        if (Has(ends, std::string(1, c))) break;
        cut += c;
    }
    return cut;
}

std::string CutScheme(const std::string& link) {
    return Lower(Trim(link)).substr(0, 7) == "http://" ? From(link, 8) : link;
}

std::string PathPart(std::string link) {
    link = CutScheme(Trim(link));
    link = Trim(Replace(link, "www.", ""));
    return Trim(Replace(link, "/", "\\"));
}

/// The folder that the first "/../" climbs out of goes, wherever its name occurs.
std::string ResolveDotDot(std::string s) {
    s = Replace(s, "\\", "/");
    while (Has(s, "/../")) {
        std::string current, previous;
        bool started = false;
        for (const char c : s) {
            if (c == '/') {
                if (started && current == "/..") break;
                if (started) previous = current;
                current.clear();
                started = true;
            }
            if (started) current += c;
        }
        if (!previous.empty()) s = Replace(s, previous, "");
        const std::size_t p = s.find("/../");
        if (p != std::string::npos) s = s.substr(0, p + 1) + s.substr(p + 4);
    }
    return s;
}

bool Filtered(const std::string& link) {
    for (int i = 1; i <= 100; ++i) {
        const std::string filter = Lower(Trim(bas_General::KeywordFilters[i]));
        if (!filter.empty() && Has(Lower(Trim(link)), filter)) return true;
    }
    return false;
}

bool TypeIsListed(const std::string& link) {
    const std::string lowered = Lower(link);
    const std::size_t dot = lowered.rfind('.');
    const std::string extension = dot == std::string::npos ? lowered : lowered.substr(dot);
    return Has(crawl::FileTypeSet, ":" + Trim(extension) + ":");
}

void Append(const std::string& line, std::string path) {
    bas_Output::AppendToFile(line, path);
}

std::string RewrittenPage(std::string page) {
    for (const char* const pattern : kLinkPatterns) {
        page = Replace(page, pattern, "href=");
    }
    page = Replace(page, "\"", "'");
    page = Replace(page, "\r\n", "");
    page = Replace(page, "\n", "");
    page = Replace(page, "\r", "");
    for (const char* const refresh : {"; url=", ";url=", "; URL=", ";URL="}) {
        page = Replace(page, refresh, "a href='http://");
    }
    return page;
}

std::string Absolute(std::string link, const std::string& base) {
    link = Replace(link, "\\", "/");
    if (link.substr(0, 7) != "http://") link = base + link;
    link = Replace(link, "m//", "m/");
    link = Replace(link, "t//", "t/");
    link = Replace(link, "g//", "g/");
    link = link.substr(0, 7) + Replace(Trim(From(link, 8)), "//", "/");
    return Replace(link, "http://http://", "http://");
}

void Visit(std::string candidate, const std::string& base) {
    if (candidate.substr(0, 1) == "'") candidate = candidate.substr(1);
    if (candidate.substr(0, 1) == "#") return;
    candidate = Replace(Trim(CutAt(candidate, "#'>} ;")), "\r\n", "");
    for (const char* const skipped : {"https", "irc:", "ftp:", "@"}) {
        if (Has(candidate, skipped)) return;
    }
    AdmitLink(Absolute(candidate, base));
}

}  // namespace

std::string Trim(std::string s) {
    while (!s.empty() && s.front() == ' ')
        s.erase(0, 1);
    while (!s.empty() && s.back() == ' ')
        s.pop_back();
    return s;
}

std::string Lower(std::string s) {
    for (char& c : s) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return s;
}

std::string Replace(const std::string& s, const std::string& find, const std::string& with) {
    std::string result;
    for (std::size_t i = 0; i < s.size();) {
        if (s.compare(i, find.size(), find) == 0) {
            result += with;
            i += find.size();
        } else {
            result += s[i++];
        }
    }
    return result;
}

void ExtractLinks(std::string& page, std::string& base) {
    if (base.empty() || base.back() != '/') base += "/";
    page = RewrittenPage(page);
    while (Has(page, "href")) {
        const std::size_t p = page.find("href") + 1;
        Visit(Trim(From(page, p + 5).substr(0, 300)), base);
        page = From(page, p + 10);
    }
}

void AdmitLink(std::string link) {
    link = CutScheme(link);
    if (!Has(Lower(link), Lower(crawl::SiteHost))) return;
    link = CutScheme(link);
    link = Trim(Replace(link, "http:\\", "http://"));
    link = Trim(Replace(link, "\\", "/"));
    if (LastCharacter(link) == "/") link += "index.html";

    const std::string path = bas_Output::CleanLinkName(crawl::TargetFolder + Trim(PathPart(link)));
    for (const char* const ending : {".html", "", ".tmp"}) {
        if (bas_Extractor::FileExists(path + ending)) return;
    }
    const bool is_query = Has(Lower(Trim(link)), ".php?");
    if (!is_query && LastCharacter(Replace(link, "\\", "/")) != "/" && !TypeIsListed(link)) {
        crawl::List2.AddItem(link);
        return;
    }
    if (LastCharacter(link) == "?") link = link.substr(0, link.size() - 1);
    for (const char* const climb : kClimbs) {
        if (Has(link, climb)) return;
    }
    link = Replace(link, "\\", "/");
    if (Has(link, "/../")) {
        Append(link, crawl::TargetFolder + "transdd.txt");
        link = ResolveDotDot(link);
        Append(link + "\r\n", crawl::TargetFolder + "transdd.txt");
    }
    link = Replace(link, "/./", "/");
    link = Replace(link, "http://", "http:/");
    link = Replace(link, "http:/", "http://");
    if (Filtered(link)) return;
    crawl::List1.AddItem(link);
    Append("This file is queued to be downloaded, or did not download correctly.", path + ".tmp");
    Append(link, crawl::TargetFolder + "log.txt");
}

}  // namespace literal
