#include "binding/page_bindings.h"
#include "core/record/globals.h"
#include "images/thumbnail.h"
#include "pages/forms/control_helpers.h"
#include "platform/machine/file_system.h"
#include "platform/services.h"
#include "platform/utf8.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp2;

template <auto Member, int Index = -1>
constexpr ControlRef on = of<P, Member, Index>;

constexpr auto kRows = std::to_array<BindingRow>({
    {&R::RAILROAD_NAME, on<&P::lbl_Railroad_Name>},
    {&R::RAILROAD_CODE, on<&P::txt_Railroad_Code>},
    {&R::STATION_NAME, on<&P::lbl_Station_Name>},
    {&R::STATION_CODE, on<&P::txt_Station_Code>},
    {&R::TIKU_CODE, on<&P::txt_Tiku_Code>},
    {&R::WALK_MINUTES, on<&P::txt_Walk_Minutes>},
    {&R::BUS_ROUTE, on<&P::txt_Bus_Route>},
    {&R::BUS_MINUTES, on<&P::txt_Bus_Minutes>},
    {&R::BUSSTOP, on<&P::txt_Busstop>},
    {&R::TEIHO_MINUTES, on<&P::txt_Thiho_Minutes>},
    {&R::CAR_TARGET, on<&P::txt_Car_Target>},
    {&R::CAR_MINUTES, on<&P::txt_Car_Minutes>},
    {&R::CAR_DISTANCE, on<&P::txt_Car_Distance>, ReadAs::NullToStr},
    {&R::OFFICE_HOURS, on<&P::txt_Office_Hours>},
    {&R::DAY_OFF, on<&P::txt_Day_Off>},
    {&R::COMPANY_COMMENT, on<&P::txt_Company_Comment>},
    {&R::COMPANY_URL_COMMENT, on<&P::txt_Company_URL_Comment>},
    {&R::COMPANY_URL, on<&P::txt_Company_URL>},
    {kPhotoSlots[0].group, on<&P::cbo_pic_PhotoFile, 0>},
    {kPhotoSlots[1].group, on<&P::cbo_pic_PhotoFile, 1>},
    {kPhotoSlots[0].file, on<&P::txt_PhotoFilePath, 0>},
    {kPhotoSlots[1].file, on<&P::txt_PhotoFilePath, 1>},
});

bool showPhoto(std::size_t slot) {
    P& form = page<P>();
    const std::string& group = tCustomerInfo.*kPhotoSlots[slot].group;
    const std::string& file = tCustomerInfo.*kPhotoSlots[slot].file;
    if (group.empty()) {
        form.cbo_pic_PhotoFile[slot].setListIndex(0);
    } else {
        PF_SetControlValue(form.cbo_pic_PhotoFile[slot], group);
    }
    PF_SetControlValue(form.txt_PhotoFilePath[slot], file);
    if (file.empty() || !services().fileSystem->exists(file)) {
        return true;
    }
    return PF_Thumbnail(form.pic_PhotoFile[slot], file);
}

bool showPhoto1() { return showPhoto(0); }
bool showPhoto2() { return showPhoto(1); }

/// Only companies with a number from the server can have photos.
void enablePhotoSlots() {
    P& form = page<P>();
    const bool numbered = !isNew();
    form.lbl_ImgMsg.setVisible(!numbered);
    for (std::size_t i = 0; i < form.cbo_pic_PhotoFile.size(); ++i) {
        form.cbo_pic_PhotoFile[i].setEnabled(numbered);
        form.pic_PhotoFile[i].setEnabled(numbered);
        form.btm_PhotoSelect[i].setEnabled(numbered);
        form.btm_PhotoDel[i].setEnabled(numbered);
    }
}

/// The district is derived from the line and is never read back from the page.
void deriveDistrict() { tCustomerInfo.TIKU_CODE = firstCharacters(tCustomerInfo.RAILROAD_CODE, 2) + "00"; }

constexpr auto kToPage = std::to_array<Step>({
    row(&R::RAILROAD_NAME),
    row(&R::RAILROAD_CODE),
    row(&R::STATION_NAME),
    row(&R::STATION_CODE),
    row(&R::TIKU_CODE),
    row(&R::WALK_MINUTES),
    row(&R::BUS_ROUTE),
    row(&R::BUS_MINUTES),
    row(&R::BUSSTOP),
    row(&R::TEIHO_MINUTES),
    row(&R::CAR_TARGET),
    row(&R::CAR_MINUTES),
    row(&R::CAR_DISTANCE),
    row(&R::OFFICE_HOURS),
    row(&R::DAY_OFF),
    row(&R::COMPANY_COMMENT),
    row(&R::COMPANY_URL_COMMENT),
    row(&R::COMPANY_URL),
    step<showPhoto1>(&R::PHOTO_GRP1, &R::PHOTO_FILE1),
    step<showPhoto2>(&R::PHOTO_GRP2, &R::PHOTO_FILE2),
    step<enablePhotoSlots>(),
});

constexpr auto kToRecord = std::to_array<Step>({
    row(&R::RAILROAD_NAME),
    row(&R::RAILROAD_CODE),
    row(&R::STATION_NAME),
    row(&R::STATION_CODE),
    step<deriveDistrict>(&R::TIKU_CODE),
    row(&R::WALK_MINUTES),
    row(&R::BUS_ROUTE),
    row(&R::BUS_MINUTES),
    row(&R::BUSSTOP),
    row(&R::TEIHO_MINUTES),
    row(&R::CAR_TARGET),
    row(&R::CAR_MINUTES),
    row(&R::CAR_DISTANCE),
    row(&R::OFFICE_HOURS),
    row(&R::DAY_OFF),
    row(&R::COMPANY_COMMENT),
    row(&R::COMPANY_URL_COMMENT),
    row(&R::COMPANY_URL),
    row(&R::PHOTO_GRP1),
    row(&R::PHOTO_GRP2),
    row(&R::PHOTO_FILE1),
    row(&R::PHOTO_FILE2),
});

}  // namespace

constexpr PageBinding kBinding2{kRows, kToPage, kToRecord};

}  // namespace orv
