#pragma once

#include <optional>
#include <string>

#include "core/record/company_record.h"
#include "core/record/transmit_info.h"
#include "platform/suite/db_service.h"

namespace orv {

/// All that lives for the whole run. The given names below are references into the one object, so that assigning a
/// fresh one resets every one of them; only a test fixture does that.
struct Context {
    CompanyRecord tCustomerInfo;
    TransmitInfo tTransmitInfo;

    std::string gErrMsg;
    std::string gErrCode;
    std::string gErrItems;

    ConnectionPtr gConn;
    RecordsetPtr gRs;

    std::string gUserId;
    bool gMultiCompany = false;
    bool gAddressByMaster = false;
    bool gSaved = false;
    bool gSaving = false;
    bool gChecking = false;

    std::optional<FailureRecord> gLoadFailure;
    std::string gGivenNumber;
    bool gLockTakenOver = false;

    std::string gImgSrcFile;
    std::string gImgDstFile;
    std::string gImgSrcSizeText;
    std::string gImgSrcHeightText;
    std::string gImgSrcWidthText;
    std::string gImgQualityText;
    bool gImgLoaded = false;
};

inline Context theContext;

inline namespace bas_Main_Companydata {

/// The company that the program works on.
inline constinit CompanyRecord& tCustomerInfo = theContext.tCustomerInfo;
inline constinit TransmitInfo& tTransmitInfo = theContext.tTransmitInfo;
/// The pair: text and code of the last failure, both empty when none is pending.
inline constinit std::string& gErrMsg = theContext.gErrMsg;
inline constinit std::string& gErrCode = theContext.gErrCode;
/// The one connection and the one recordset; open only within one event.
inline constinit ConnectionPtr& gConn = theContext.gConn;
inline constinit RecordsetPtr& gRs = theContext.gRs;
/// As the argument string gave it; after the load `USER_ID` of the record is the company in force.
inline constinit std::string& gUserId = theContext.gUserId;
inline constinit bool& gMultiCompany = theContext.gMultiCompany;
inline constinit bool& gAddressByMaster = theContext.gAddressByMaster;
/// A complete save has run since the company was loaded.
inline constinit bool& gSaved = theContext.gSaved;
/// A save is running: a change of the company list is its own.
inline constinit bool& gSaving = theContext.gSaving;
/// The pages are being checked for a save. Nothing in the program reads it.
inline constinit bool& gChecking = theContext.gChecking;
/// Why the record does not hold the whole company, after a switch whose load failed; empty when it does. Such a record
/// is never written.
inline constinit std::optional<FailureRecord>& gLoadFailure = theContext.gLoadFailure;
/// The number that the server has given to the new company of the record, from its second write on; its rows may bear
/// it.
inline constinit std::string& gGivenNumber = theContext.gGivenNumber;
/// At the start this computer already had a lock on the company.
inline constinit bool& gLockTakenOver = theContext.gLockTakenOver;

}  // namespace bas_Main_Companydata

inline namespace bas_FromCommon {

/// Display names of the fields that refused a value while a page was filled.
inline constinit std::string& gErrItems = theContext.gErrItems;

}  // namespace bas_FromCommon

inline namespace bas_Image {

/// The picture chosen, which is never written to, and the file that its fitting makes; the latter is empty after the
/// operator's cancel.
inline constinit std::string& gImgSrcFile = theContext.gImgSrcFile;
inline constinit std::string& gImgDstFile = theContext.gImgDstFile;
/// The figures of the picture chosen, as the operator reads them.
inline constinit std::string& gImgSrcSizeText = theContext.gImgSrcSizeText;
inline constinit std::string& gImgSrcHeightText = theContext.gImgSrcHeightText;
inline constinit std::string& gImgSrcWidthText = theContext.gImgSrcWidthText;
/// The quality of the result: "255/255" as long as none has been looked for.
inline constinit std::string& gImgQualityText = theContext.gImgQualityText;
/// The confirmation dialog has got to the end of its load.
inline constinit bool& gImgLoaded = theContext.gImgLoaded;

}  // namespace bas_Image

}  // namespace orv
