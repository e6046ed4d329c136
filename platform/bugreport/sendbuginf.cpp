// sendBugInf over libcurl's SMTP: a MIME message whose first part is the
// body and whose further parts are the pack's files.

#include "bugreport.h"

#include <curl/curl.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct CurlFreer
{
    void operator()(CURL* c) const { curl_easy_cleanup(c); }
};
struct MimeFreer
{
    void operator()(curl_mime* m) const { curl_mime_free(m); }
};
struct ListFreer
{
    void operator()(curl_slist* l) const { curl_slist_free_all(l); }
};

std::string env(const char* name, const char* fallback = "")
{
    const char* value = std::getenv(name);
    return value && *value ? value : fallback;
}

// Sorted, so that a report always lists its files in the same order.
std::vector<fs::path> packFiles(const std::string& dir, bool* ok)
{
    std::vector<fs::path> files;
    *ok = true;
    if (dir.empty())
        return files;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(dir, ec))
        if (entry.is_regular_file(ec))
            files.push_back(entry.path());
    if (ec)
        *ok = false;
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

extern "C" int sendBugInf(const char* pszTo, const char* pszSubject, const char* pszBody,
                          const char* pszPackDir)
{
    if (!pszTo || !*pszTo || !pszSubject || !pszBody || !pszPackDir)
        return BUGREPORT_E_ARGUMENT;
    const std::string url = env("TONEWRIGHT_SMTP_URL");
    if (url.empty())
        return BUGREPORT_E_NO_SERVER;
    bool readable = true;
    const std::vector<fs::path> files = packFiles(pszPackDir, &readable);
    if (!readable)
        return BUGREPORT_E_PACK;

    static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    if (!ready)
        return BUGREPORT_E_SEND;
    std::unique_ptr<CURL, CurlFreer> curl(curl_easy_init());
    if (!curl)
        return BUGREPORT_E_SEND;
    const std::string from = env("TONEWRIGHT_SMTP_FROM", "tonewright@localhost");
    const std::string user = env("TONEWRIGHT_SMTP_USER");
    const std::string password = env("TONEWRIGHT_SMTP_PASSWORD");
    curl_easy_setopt(curl.get(), CURLOPT_URL, url.c_str());
    curl_easy_setopt(curl.get(), CURLOPT_MAIL_FROM, ("<" + from + ">").c_str());
    std::unique_ptr<curl_slist, ListFreer> recipients(
        curl_slist_append(nullptr, (std::string("<") + pszTo + ">").c_str()));
    curl_easy_setopt(curl.get(), CURLOPT_MAIL_RCPT, recipients.get());
    if (!user.empty()) {
        curl_easy_setopt(curl.get(), CURLOPT_USERNAME, user.c_str());
        curl_easy_setopt(curl.get(), CURLOPT_PASSWORD, password.c_str());
    }
    curl_easy_setopt(curl.get(), CURLOPT_CONNECTTIMEOUT, 15L);
    curl_easy_setopt(curl.get(), CURLOPT_TIMEOUT, 120L);
    curl_easy_setopt(curl.get(), CURLOPT_NOSIGNAL, 1L);

    std::unique_ptr<curl_slist, ListFreer> headers;
    auto header = [&headers](const std::string& line) {
        headers.reset(curl_slist_append(headers.release(), line.c_str()));
    };
    header("From: Tonewright <" + from + ">");
    header(std::string("To: <") + pszTo + ">");
    header(std::string("Subject: ") + pszSubject);
    curl_easy_setopt(curl.get(), CURLOPT_HTTPHEADER, headers.get());

    std::unique_ptr<curl_mime, MimeFreer> mime(curl_mime_init(curl.get()));
    curl_mimepart* text = curl_mime_addpart(mime.get());
    curl_mime_data(text, pszBody, CURL_ZERO_TERMINATED);
    curl_mime_type(text, "text/plain; charset=UTF-8");
    curl_mime_encoder(text, "quoted-printable");
    for (const fs::path& file : files) {
        curl_mimepart* part = curl_mime_addpart(mime.get());
        if (curl_mime_filedata(part, file.c_str()) != CURLE_OK)
            return BUGREPORT_E_PACK;
        curl_mime_type(part, "application/octet-stream");
        curl_mime_encoder(part, "base64");
    }
    curl_easy_setopt(curl.get(), CURLOPT_MIMEPOST, mime.get());
    return curl_easy_perform(curl.get()) == CURLE_OK ? BUGREPORT_OK : BUGREPORT_E_SEND;
}
