#pragma once

#include <memory>
#include <optional>
#include <string>

#include "core/record/company_record.h"
#include "core/record/transmit_info.h"
#include "platform/machine/transmit_table.h"
#include "platform/suite/db_service.h"

namespace orv {

class SettingsWatch;

/// State that exists for the whole run. The given names below are references into this one object. Assigning a new
/// object resets all of them; only a test fixture does that.
struct Context {
    CompanyRecord tCustomerInfo;
    TransmitInfo tTransmitInfo;

    std::string gErrMsg;
    std::string gErrCode;
    std::string gErrItems;

    ConnectionPtr gConn;
    RecordsetPtr gRs;

    std::string gTransmitDatabase;
    std::unique_ptr<TransmitWorkspace> gTransmitWorkspace;

    std::string gUserId;
    bool gMultiCompany = false;
    bool gAddressByMaster = false;
    bool gSaved = false;
    bool gSaving = false;
    bool gChecking = false;
    /// True if an input of a page has changed since the company was loaded or completely saved.
    bool unsavedChanges = false;

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

    /// True while a log record is written. Reading the log's path can fail in a setting, which would log its failure in
    /// turn.
    bool writingLog = false;
    /// True if the operator has already seen that records are kept elsewhere. It is shown once per run.
    bool logRefusalShown = false;
    /// Notices settings that cannot be read.
    SettingsWatch* settingsWatch = nullptr;
    /// The number of values that were not shown because the file of field names is missing.
    unsigned valuesNotShown = 0;
};

inline Context theContext;

inline namespace bas_Main_Companydata {

/// The company that is being edited.
inline constinit CompanyRecord& tCustomerInfo = theContext.tCustomerInfo;
inline constinit TransmitInfo& tTransmitInfo = theContext.tTransmitInfo;
/// The pair: text and code of the last failure. Both are empty when none is pending.
inline constinit std::string& gErrMsg = theContext.gErrMsg;
inline constinit std::string& gErrCode = theContext.gErrCode;
/// The one connection and the one recordset, open only within an event.
inline constinit ConnectionPtr& gConn = theContext.gConn;
inline constinit RecordsetPtr& gRs = theContext.gRs;
/// Path of the database with the transmission profiles. Only a program that uses the loader assigns it; this one does
/// not.
inline constinit std::string& gTransmitDatabase = theContext.gTransmitDatabase;
/// The loader's workspace while it reads a profile.
inline constinit std::unique_ptr<TransmitWorkspace>& gTransmitWorkspace = theContext.gTransmitWorkspace;
/// The number from the arguments. After the load the current company is `USER_ID` of the record.
inline constinit std::string& gUserId = theContext.gUserId;
inline constinit bool& gMultiCompany = theContext.gMultiCompany;
inline constinit bool& gAddressByMaster = theContext.gAddressByMaster;
/// True if a complete save has run since the company was loaded.
inline constinit bool& gSaved = theContext.gSaved;
/// True during a save. A change of the company list is then made by the save itself.
inline constinit bool& gSaving = theContext.gSaving;
/// True while the pages are checked for a save. The program never reads it.
inline constinit bool& gChecking = theContext.gChecking;
/// Why the record is incomplete, after a switch whose load failed. Empty if the record is complete. An incomplete
/// record is never written.
inline constinit std::optional<FailureRecord>& gLoadFailure = theContext.gLoadFailure;
/// The number that the server assigned to the record's new company, set before its second write. The rows in the store
/// might already have it.
inline constinit std::string& gGivenNumber = theContext.gGivenNumber;
/// True if this computer already had a lock on the company at the start.
inline constinit bool& gLockTakenOver = theContext.gLockTakenOver;

}  // namespace bas_Main_Companydata

inline namespace bas_FromCommon {

/// Display names of the fields that rejected a value while a page was filled.
inline constinit std::string& gErrItems = theContext.gErrItems;

}  // namespace bas_FromCommon

inline namespace bas_Image {

/// The chosen picture, which is never modified, and the fitted file made from it. The latter is empty if the operator
/// cancels.
inline constinit std::string& gImgSrcFile = theContext.gImgSrcFile;
inline constinit std::string& gImgDstFile = theContext.gImgDstFile;
/// Size of the chosen picture, as shown to the operator.
inline constinit std::string& gImgSrcSizeText = theContext.gImgSrcSizeText;
inline constinit std::string& gImgSrcHeightText = theContext.gImgSrcHeightText;
inline constinit std::string& gImgSrcWidthText = theContext.gImgSrcWidthText;
/// Quality of the fitted picture; "255/255" until a search for it has started.
inline constinit std::string& gImgQualityText = theContext.gImgQualityText;
/// True if the confirmation dialog has finished loading.
inline constinit bool& gImgLoaded = theContext.gImgLoaded;

}  // namespace bas_Image

}  // namespace orv
