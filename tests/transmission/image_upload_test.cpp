#include "transmission/image_upload.h"

#include "support/catch_failure.h"
#include "support/fixture.h"

namespace orv {
namespace {

constexpr const char* kFirst = "C:\\ORV\\IMG\\1\\000004601COS00000000_01.jpg";
constexpr const char* kSecond = "C:\\ORV\\IMG\\2\\000004601COS00000000_02.jpg";

using Names = std::vector<std::string>;

class ImageUpload : public SystemTest {
protected:
    ImageUpload() {
        settings.set("NET", "ORVIMG_HTTP", "http://img.test/davroot");
        tCustomerInfo.PHOTO_FILE1 = "000004601COS00000000_01.jpg";
        tCustomerInfo.PHOTO_FILE2 = "000004601COS00000000_02.jpg";
        sendForm().onLoad.raise();
    }
    Names filesSent() const {
        Names names;
        for (const HttpScript::Sent& sent : http.sent) names.push_back(sent.file);
        return names;
    }
};

TEST_F(ImageUpload, ExistingPhotosAreSentInOrder) {
    PF_ImageDataTransfer();
    ASSERT_EQ(filesSent(), (Names{kFirst, kSecond}));
    EXPECT_EQ(http.sent[0].url, "http://img.test/davroot/000004601COS00000000_01.jpg");
    for (const HttpScript::Sent& sent : http.sent) {
        EXPECT_EQ(sent.timeout, 30000);
        EXPECT_EQ(sent.version, "HTTP/1.1");
        EXPECT_EQ(sent.user + " " + sent.password, "kvr73node Xk9TRbmW2");
        EXPECT_TRUE(sent.omitted);
    }
    http.sent.clear();
    for (const char* none : {"", "missing.jpg"}) {
        tCustomerInfo.PHOTO_FILE1 = none;
        PF_ImageDataTransfer();
    }
    EXPECT_EQ(filesSent(), (Names{kSecond, kSecond}));
    settings.set("NET", "TRANSFERTYPE", "FTP");
    PF_ImageDataTransfer();
    http.state = 1;
    RH_ImageDataTransfr(kFirst);
    EXPECT_EQ(http.sent.size(), 2U) << "neither by FTP nor while the control is busy";
    EXPECT_EQ(log() + gErrMsg + gErrCode, "");
}

TEST_F(ImageUpload, AFileThatCannotBeLookedAtIsPassedOver) {
    files.hide(kFirst);
    PF_ImageDataTransfer();
    EXPECT_EQ(filesSent(), Names{kSecond});
}

TEST_F(ImageUpload, AStatusOf400OrMoreIsAFailure) {
    for (const auto& [status, fails] : {std::pair{201, false}, {302, false}, {399, false}, {400, true}, {503, true}}) {
        clearPair();
        http.answers = {{status, "Reason"}};
        RH_ImageDataTransfr(kFirst);
        EXPECT_EQ(gErrMsg, fails ? "[ RH_ImageDataTransfr ] Reason" : "") << status;
        EXPECT_EQ(gErrCode, fails ? std::to_string(status) : "") << status;
    }
    EXPECT_EQ(log(), record("400", "[ RH_ImageDataTransfr ] Reason") + record("503", "[ RH_ImageDataTransfr ] Reason"));
}

TEST_F(ImageUpload, WithoutItsFormNothingIsSentAndTheLogSaysSo) {
    dropSendForm();
    RH_ImageDataTransfr(kFirst);
    EXPECT_EQ(log(), record("91", "[ RH_ImageDataTransfr ] 操作の対象がありません。"));
}

TEST_F(ImageUpload, NamesOfFiles) {
    using Name = std::pair<const char*, const char*>;
    for (const auto& [text, bare] : {Name{"\"C:\\a b\"", "C:\\a b"}, Name{" \"a\" ", "a"}, Name{"\"\"", ""},
                                     Name{"\"a", "\"a"}, Name{"a\"", "a\""}, Name{"ab", "ab"}, Name{"写真", "写真"}}) {
        EXPECT_EQ(PF_StripQuotes(text), bare);
    }
    for (const char* tooShort : {"", " ", "a", "写", "\""}) {
        EXPECT_EQ(catchFailure([&] { PF_StripQuotes(tooShort); }), 5) << tooShort;
    }
    for (const auto& [path, name] :
         {Name{"C:\\a\\b.jpg", "b.jpg"}, Name{"C:b.jpg", "b.jpg"}, Name{"b.jpg", "b.jpg"}, Name{"C:\\a\\", ""}}) {
        EXPECT_EQ(PF_BaseName(path), name);
    }
    const std::string first = kFirst;
    using File = std::pair<std::string, bool>;
    for (const auto& [file, opens] : {File{first, true}, File{"\"" + first + "\"", true}, File{first + "\\", true},
                                      File{first + "x", false}, File{"x", false}, File{"", false}}) {
        EXPECT_EQ(PF_FileCanOpen(file), opens) << file;
    }
}

}  // namespace
}  // namespace orv
