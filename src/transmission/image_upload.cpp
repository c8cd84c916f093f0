#include "transmission/image_upload.h"

#include <cstdint>
#include <optional>

#include "config/settings.h"
#include "core/record/globals.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "platform/ascii.h"
#include "platform/machine/file_system.h"
#include "platform/machine/window_system.h"
#include "platform/run_time_error.h"
#include "platform/services.h"
#include "platform/utf8.h"
#include "validation/text/conversions.h"

namespace orv {
namespace {

std::unique_ptr<frm_Send> theSendForm;

constexpr const char* kUser = "kvr73node";
constexpr const char* kPassword = "Xk9TRbmW2";
constexpr std::int32_t kIdle = 0;
constexpr std::int32_t kFirstFailureStatus = 400;

HttpControl& httpControl() {
    if (!sendForm().Http1) {
        throw RunTimeError(Failure::ObjectNotSet);
    }
    return *sendForm().Http1;
}

std::string sendingPhoto(const PhotoSlot& slot) {
    return "写真を送信しています（" + std::to_string(slot.index + 1) + "/" + std::to_string(kPhotoSlots.size()) + "）…";
}

void request(HttpControl& http, const std::string& file, const std::string& name) {
    http.Timeout(toLong(com().ORV_TimeOut()));
    http.Version("HTTP/1.1");
    http.URL(multiCom().ORV_IMAGE_HTTP_URL() + name);
    std::string response;
    http.Upload(file, std::nullopt, response, std::nullopt, kUser, kPassword);
}

}  // namespace

frm_Send::frm_Send() : Form("frm_Send", "", {.x = 1, .y = 1}) {
    onLoad = [this] { Http1 = services().http(); };
    onUnload = [this] { Http1.reset(); };
}

frm_Send& sendForm() {
    if (!theSendForm) {
        theSendForm = std::make_unique<frm_Send>();
    }
    return *theSendForm;
}

void dropSendForm() { theSendForm.reset(); }

bool PF_FileCanOpen(const std::string& file) {
    bool canOpen = false;
    static_cast<void>(caught([&] {
        std::string name = PF_StripQuotes(file);
        if (name.ends_with('\\')) {
            name.pop_back();
        }
        canOpen = services().fileSystem->exists(name) && services().fileSystem->canOpen(name);
    }));  // a file that cannot be checked is not sent
    return canOpen;
}

std::string PF_StripQuotes(const std::string& text) {
    const std::string name(trimmed(text));
    if (toCharacters(name).size() < 2) {
        throw RunTimeError(Failure::InvalidCall);
    }
    const bool quoted = name.starts_with('"') && name.ends_with('"');
    return quoted ? name.substr(1, name.size() - 2) : name;
}

std::string PF_BaseName(const std::string& path) {
    const std::size_t split = path.find_last_of("\\:");
    return split == std::string::npos ? path : path.substr(split + 1);
}

void PF_ImageDataTransfer() {
    const bool isFtp = multiCom().ORV_IMAGE_TRANSFER_TYPE() == "FTP";
    for (const PhotoSlot& slot : kPhotoSlots) {
        const std::string& photo = tCustomerInfo.*slot.file;
        if (photo.empty()) {
            continue;
        }
        const std::string path = com().ImgNoFolder(slot.index) + photo;
        if (PF_FileCanOpen(path) && !isFtp) {
            services().windows->showWork(sendingPhoto(slot));
            RH_ImageDataTransfr(path);
        }
    }
}

void RH_ImageDataTransfr(const std::string& file) {
    const std::string label = "[ RH_ImageDataTransfr ] ";
    const bool fine = trapped(label, [&] {
        const std::string name = PF_BaseName(file);
        HttpControl& http = httpControl();
        if (http.State() > kIdle) {
            return true;
        }
        request(http, file, name);
        const std::int32_t status = http.ResponseCode();
        return status < kFirstFailureStatus || fail(label + http.ResponseText(), std::to_string(status));
    });
    if (!fine) {
        logPair();
    }
}

}  // namespace orv
