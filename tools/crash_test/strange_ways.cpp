#include "strange_ways.h"

#include <utility>

namespace crash_test {
namespace {

using Then = Strangeness::Then;
using enum Fate;

constexpr std::size_t kBits = 8;
constexpr const char* kInterim = "HTTP/1.1 100 Continue\r\n\r\n";
constexpr const char* kChunked = "Transfer-Encoding: chunked";

/// Status line, header lines and body of an answer.
struct Parts {
    std::string status;
    std::string headers;
    std::string body;

    explicit Parts(const std::string& answer) {
        const std::size_t line = answer.find("\r\n") + 2;
        const std::size_t head = answer.find("\r\n\r\n");
        status = answer.substr(0, line);
        headers = answer.substr(line, head + 2 - line);
        body = answer.substr(head + 4);
    }
    std::string whole() const { return status + headers + "\r\n" + body; }
    void dropLength() {
        const std::size_t length = headers.find("Content-Length: ");
        if (length != std::string::npos) {
            headers.erase(length, headers.find("\r\n", length) + 2 - length);
        }
    }
};

/// Replaces the length by `lines`.
std::string with(const std::string& answer, const std::string& status, const std::string& lines,
                 const std::string& body) {
    Parts parts(answer);
    parts.dropLength();
    parts.status = "HTTP/1.1 " + status + "\r\n";
    parts.headers += lines.empty() ? "" : lines + "\r\n";
    parts.body = body;
    return parts.whole();
}

std::string hex(std::size_t number) {
    constexpr const char* kDigits = "0123456789abcdef";
    return (number < 16 ? "" : hex(number / 16)) + kDigits[number % 16];
}

Strangeness replaced(const std::string& answer) {
    return {[answer](const std::string&) { return answer; }};
}

Strangeness length(const std::string& lines) {
    return {[lines](const std::string& answer) { return with(answer, "200 OK", lines, Parts(answer).body); }};
}

Strangeness status(const std::string& status, const std::string& lines = "Content-Length: 0") {
    return {[=](const std::string& answer) { return with(answer, status, lines, ""); }};
}

Strangeness body(const std::string& body) {
    return {[=](const std::string& answer) {
        return with(answer, "200 OK", "Content-Length: " + std::to_string(body.size()), body);
    }};
}

/// `behind` follows the only chunk, which contains the body.
Strangeness chunked(const std::string& behind, const std::string& line = kChunked) {
    return {[=](const std::string& answer) {
        const std::string body = Parts(answer).body;
        return with(answer, "200 OK", line, hex(body.size()) + "\r\n" + body + "\r\n" + behind);
    }};
}

Strangeness before(const std::string& more) {
    return {[=](const std::string& answer) { return more + answer; }};
}

Strangeness line(const std::string& more) {
    return {[=](const std::string& answer) {
        Parts parts(answer);
        parts.headers = more + "\r\n" + parts.headers;
        return parts.whole();
    }};
}

Strangeness beginning(const std::string& version) {
    return {[=](const std::string& answer) { return version + answer.substr(answer.find(' ')); }};
}

Strangeness flooded(Strangeness start, const std::string& flood) {
    start.then = Then::Flood;
    start.flood = flood;
    return start;
}

Strangeness cutAt(std::size_t place) {
    return {[=](const std::string& answer) { return answer.substr(0, place); }};
}

Strangeness silentAt(std::size_t place) {
    Strangeness strangeness = cutAt(place);
    strangeness.then = Then::Silence;
    return strangeness;
}

Strangeness turnedAt(std::size_t place) {
    return {[=](std::string answer) {
        char& byte = answer[place / kBits];
        byte = static_cast<char>(byte ^ static_cast<char>(1U << place % kBits));
        return answer;
    }};
}

void addRedirects(std::vector<WholeWay>& ways, const std::string& elsewhere) {
    for (const std::string code : {"301 Moved", "302 Found", "303 See Other", "307 Temporary", "308 Permanent"}) {
        for (const std::string& target : {"http://127.0.0.1:" + elsewhere + "/", "https://127.0.0.1:" + elsewhere + "/",
                                          "//127.0.0.1:" + elsewhere + "/", std::string("file:///etc/hostname")}) {
            ways.push_back(
                {code + " to " + target, status(code, "Content-Length: 0\r\nLocation: " + target), Refused, Refused});
        }
    }
    ways.push_back({"an alternative server",
                    line("Alt-Svc: h2=\"127.0.0.1:" + elsewhere +
                         "\"; persist=1\r\nRefresh: 0;url=http://127.0.0.1:" + elsewhere + "/"),
                    Taken, Taken});
}

void addStatuses(std::vector<WholeWay>& ways) {
    for (const char* code : {"000 None", "101 Switching Protocols", "199 Odd", "304 Not Modified",
                             "401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"",
                             "407 Proxy\r\nProxy-Authenticate: Basic realm=\"x\"", "500 Error", "999 Odd",
                             "503 \x1b[31m\x01\xff\xfe\xc2\x9bx"}) {
        ways.push_back({std::string("status ") + code, status(code), Refused, Refused});
    }
    ways.push_back({"a long reason", status("503 " + std::string(50000, 'x')), Refused, Refused});
    for (const char* code : {"204 No Content", "206 Partial Content", "299 Odd"}) {
        ways.push_back({std::string("nothing, with ") + code, status(code), Refused, Taken});
    }
}

void addLengths(std::vector<WholeWay>& ways) {
    ways.insert(
        ways.end(),
        {{"length too long", length("Content-Length: 1000"), Refused, Refused},
         {"length too short", length("Content-Length: 5"), Refused, Either},
         {"length 0", length("Content-Length: 0"), Refused, Either},
         {"length negative", length("Content-Length: -1"), Either, Either},
         {"length no number", length("Content-Length: abc"), Either, Either},
         {"length empty", length("Content-Length:"), Either, Either},
         {"length beyond all numbers", length("Content-Length: 99999999999999999999"), Either, Either},
         {"two lengths, the first too short", length("Content-Length: 5\r\nContent-Length: 18"), Either, Either},
         {"two lengths, the last too short", length("Content-Length: 18\r\nContent-Length: 5"), Either, Either},
         {"no length", length(""), Taken, Taken},
         {"no length and no end", flooded(length(""), std::string(16384, ' ')), Refused, Refused}});
}

void addChunks(std::vector<WholeWay>& ways) {
    const std::string both = std::string("Content-Length: 5\r\n") + kChunked;
    ways.insert(ways.end(), {{"in chunks", chunked("0\r\n\r\n"), Taken, Taken},
                             {"chunks without an end", chunked(""), Refused, Refused},
                             {"a chunk of no size", chunked("zz\r\n"), Refused, Refused},
                             {"a chunk beyond all sizes", chunked("fffffffffffffffff\r\nx"), Refused, Refused},
                             {"endless chunks", flooded(chunked(""), "10\r\n                \r\n"), Refused, Refused},
                             {"endless trailers", flooded(chunked("0\r\n"), "X: y\r\n"), Refused, Refused},
                             {"in chunks, and with a length", chunked("0\r\n\r\n", both), Either, Either},
                             {"said to be packed", line("Content-Encoding: gzip"), Either, Either},
                             {"said to be packed for the way", line("Transfer-Encoding: gzip"), Either, Either}});
}

void addBodies(std::vector<WholeWay>& ways) {
    for (const char* text :
         {"{\"id\":5001}", "{\"id\":\"\"}", "{\"id\":\"../../../\"}", R"({"id":"..\\..\\..\\"})",
          R"({"id":"C:/x.y*?|"})", "{\"id\":\"         \"}", "{\"id\":\"0000,0001\"}", "{\"id\":\"00000500 \"}",
          "{\"id\":\"---------\"}", "{\"id\":\"一二三四五六七八九\"}", "{\"id\":\"0000050\\u00001\"}",
          "{\"id\":\"00000500\\\"\"}", "null", "[]", "{\"id\":\"000005001\""}) {
        ways.push_back({std::string("body ") + text, body(text), Refused, Taken});
    }
}

}  // namespace

const std::vector<PlaceWay>& placeWays() {
    static const std::vector<PlaceWay> ways{
        {"cut", 1, cutAt, Refused, "24011"},
        {"silent", 1, silentAt, Refused, "24012"},
        {"one bit turned", kBits, turnedAt, Either, ""},
        {"a flood of bytes", 1, [](std::size_t place) { return flooded(cutAt(place), std::string(16384, 'a')); },
         Either, ""},
        {"a flood of lines", 1, [](std::size_t place) { return flooded(cutAt(place), "\r\nX-More: and more"); }, Either,
         ""},
    };
    return ways;
}

std::vector<WholeWay> wholeWays(const std::string& elsewhere) {
    std::vector<WholeWay> ways{
        {"nothing", replaced(""), Refused, Refused},
        {"a blank line", replaced("\r\n\r\n"), Refused, Refused},
        {"no head", replaced("{\"id\":\"000005001\"}"), Refused, Refused},
        {"before the request is read", {.isUnread = true}, Either, Either},
        {"byte by byte", {.then = Then::Dribble}, Refused, Refused},
        {"three interim answers first", before(std::string(kInterim) + kInterim + kInterim), Taken, Taken},
        {"hints first", before("HTTP/1.1 103 Early Hints\r\nLink: </x>\r\n\r\n"), Taken, Taken},
        {"interim answers only", replaced(std::string(kInterim) + kInterim), Refused, Refused},
        {"interim answers without end", flooded(replaced(""), kInterim), Refused, Refused},
        {"another version", beginning("HTTP/2"), Either, Either},
        {"an old version", beginning("HTTP/1.0"), Taken, Taken},
        {"another protocol", beginning("ICY"), Either, Either},
        {"a zero byte in a header", line(std::string("X-Zero: a\0b", 11)), Either, Either},
        {"a header without a name", line(": x"), Either, Either},
    };
    addRedirects(ways, elsewhere);
    addStatuses(ways);
    addLengths(ways);
    addChunks(ways);
    addBodies(ways);
    return ways;
}

}  // namespace crash_test
