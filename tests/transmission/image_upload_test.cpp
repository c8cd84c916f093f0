#include "transmission/image_upload.h"

#include <map>

#include "support/recorded_http.h"
#include "support/settings_test.h"
#include "transmission/frm_send.h"

namespace orv {
namespace {

constexpr const char* kFirst = "C:\\X\\IMG\\1\\a01.jpg";
constexpr const char* kSecond = "C:\\X\\IMG\\2\\a02.jpg";

class ImageUpload : public SettingsTest {
protected:
    ImageUpload() {
        services().http = recordedHttp(http);
        set("PATH", "IMG", "C:\\X\\IMG");
        set("PATH", "SYS", "C:\\X\\SYS");
        set("NET", "TRANSFERTYPE", "HTTP");
        set("NET", "ORVIMG_HTTP", "http://img.test/davroot");
        set("NET", "TIMEOUT", "30000");
        files.put(kFirst, "one");
        files.put(kSecond, "two");
        tCustomerInfo.PHOTO_FILE1 = "a01.jpg";
        tCustomerInfo.PHOTO_FILE2 = "a02.jpg";
        dropSendForm();
        sendForm().onLoad.raise();
    }
    ~ImageUpload() override { dropSendForm(); }

    std::vector<std::string> filesSent() const {
        std::vector<std::string> names;
        for (const HttpScript::Sent& sent : http.sent) {
            names.push_back(sent.file);
        }
        return names;
    }

    HttpScript http;
};

using Names = std::vector<std::string>;

TEST_F(ImageUpload, BothPhotosGoTheFirstOneFirst) {
    PF_ImageDataTransfer();
    ASSERT_EQ(filesSent(), (Names{kFirst, kSecond}));
    EXPECT_EQ(http.sent[0].url, "http://img.test/davroot/a01.jpg");
    EXPECT_EQ(http.sent[1].url, "http://img.test/davroot/a02.jpg");
    for (const HttpScript::Sent& sent : http.sent) {
        EXPECT_EQ(sent.timeout, 30000);
        EXPECT_EQ(sent.version, "HTTP/1.1");
        EXPECT_EQ(sent.user + " " + sent.password, "kvr73node Xk9TRbmW2");
        EXPECT_TRUE(sent.omitted);
    }
    EXPECT_EQ(log() + gErrMsg + gErrCode, "");
}

TEST_F(ImageUpload, OnlyWhatIsThereIsSent) {
    tCustomerInfo.PHOTO_FILE1 = "";
    PF_ImageDataTransfer();
    tCustomerInfo.PHOTO_FILE1 = "missing.jpg";
    PF_ImageDataTransfer();
    files.refuse(kSecond, Failure::PermissionDenied);
    PF_ImageDataTransfer();
    EXPECT_EQ(filesSent(), (Names{kSecond, kSecond}));
    EXPECT_EQ(log() + gErrMsg, "");
}

TEST_F(ImageUpload, AStatusOf400OrMoreIsAFailure) {
    for (const auto& [status, fails] :
         std::map<int, bool>{{201, false}, {302, false}, {399, false}, {400, true}, {503, true}}) {
        gErrMsg = gErrCode = "";
        http.answers = {{status, "Reason"}};
        RH_ImageDataTransfr(kFirst);
        EXPECT_EQ(gErrMsg, fails ? "[ RH_ImageDataTransfr ] Reason" : "") << status;
        EXPECT_EQ(gErrCode, fails ? std::to_string(status) : "") << status;
    }
    EXPECT_EQ(log(), record("400", "[ RH_ImageDataTransfr ] Reason") + record("503", "[ RH_ImageDataTransfr ] Reason"));
}

TEST_F(ImageUpload, NoAnswerIsALoggedRunTimeFailure) {
    http.answers = {{.failure = Failure::TimedOut}, {.failure = Failure::ConnectionFailed}};
    PF_ImageDataTransfer();
    const std::string label = "[ RH_ImageDataTransfr ] ";
    const std::string last = label + std::string(descriptionOf(Failure::ConnectionFailed));
    EXPECT_EQ(log(), record("24012", label + std::string(descriptionOf(Failure::TimedOut))) + record("24011", last));
    EXPECT_EQ(gErrMsg, last);
    EXPECT_EQ(gErrCode, "24011");
    EXPECT_EQ(filesSent(), (Names{kFirst, kSecond})) << "a failed photo does not hold up the other";
    EXPECT_TRUE(messages.shown.empty());
}

}  // namespace
}  // namespace orv
