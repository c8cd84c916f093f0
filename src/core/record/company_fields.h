#pragma once

/// Lists every field of the company record once, in the record's order.
///
/// TEXT(name, table, source, cleared, zeros): `table` is Info, Add or None. `source` is Stored (read from its column at
/// load), Probed (measured at load, never read back) or Unset (written, never assigned). `cleared` is the value in an
/// empty record. `zeros` is the length of a flag string, which replaces a blank column with zeros; it is 0 for any
/// other field.
/// FLAG(name, table): a boolean.
#define COMPANY_FIELDS(TEXT, FLAG)                      \
    TEXT(USER_ID, Info, Stored, "", 0)                  \
    TEXT(USER_PASSWD, Info, Stored, "", 0)              \
    TEXT(GROUP_NAME, Info, Stored, "", 0)               \
    TEXT(COMPANY_NAME, Info, Stored, "", 0)             \
    TEXT(COMPANY_KANA, Info, Stored, "", 0)             \
    TEXT(OFFICE_NAME, Info, Stored, "", 0)              \
    TEXT(POST_CODE, Info, Stored, "", 0)                \
    TEXT(ADDRESS_CODE, Info, Stored, "", 0)             \
    TEXT(ADDRESS, Info, Stored, "", 0)                  \
    TEXT(ADDRESS_NUMBER, Info, Stored, "", 0)           \
    TEXT(ADDRESS_GOU, Info, Stored, "", 0)              \
    TEXT(ADDRESS_OTHER, Info, Stored, "", 0)            \
    TEXT(DAIHYO_NAME, Info, Stored, "", 0)              \
    TEXT(DAIHYO_NAME_KANA, Info, Stored, "", 0)         \
    TEXT(TAKKEN_SYUNIN_NAME, Info, Stored, "", 0)       \
    TEXT(TANTO_NAME, Info, Stored, "", 0)               \
    TEXT(TEL_NO1, Info, Stored, "", 0)                  \
    TEXT(TEL_NO2, Info, Stored, "", 0)                  \
    TEXT(FAX_NO, Info, Stored, "", 0)                   \
    TEXT(TIKU_CODE, Info, Stored, "", 0)                \
    TEXT(AREA_CODE, Info, Stored, "", 0)                \
    TEXT(RAILROAD_CODE, Info, Stored, "", 0)            \
    TEXT(RAILROAD_NAME, Info, Stored, "", 0)            \
    TEXT(STATION_CODE, Info, Stored, "", 0)             \
    TEXT(STATION_NAME, Info, Stored, "", 0)             \
    TEXT(WALK_MINUTES, Info, Stored, "", 0)             \
    TEXT(BUS_ROUTE, Info, Stored, "", 0)                \
    TEXT(BUSSTOP, Info, Stored, "", 0)                  \
    TEXT(BUS_MINUTES, Info, Stored, "", 0)              \
    TEXT(TEIHO_MINUTES, Info, Stored, "", 0)            \
    TEXT(CAR_TARGET, Info, Stored, "", 0)               \
    TEXT(CAR_MINUTES, Info, Stored, "", 0)              \
    TEXT(CAR_DISTANCE, Info, Stored, "", 0)             \
    TEXT(SAME_CHECK, Info, Stored, "1", 0)              \
    TEXT(PC_OFFICE_NAME, Info, Stored, "", 0)           \
    TEXT(PC_POST_CODE, Info, Stored, "", 0)             \
    TEXT(PC_ADDRESS_CODE, Info, Stored, "", 0)          \
    TEXT(PC_ADDRESS, Info, Stored, "", 0)               \
    TEXT(PC_ADDRESS_NUMBER, Info, Stored, "", 0)        \
    TEXT(PC_ADDRESS_GOU, Info, Stored, "", 0)           \
    TEXT(PC_TANTO_NAME, Info, Stored, "", 0)            \
    TEXT(PC_TEL_NO1, Info, Stored, "", 0)               \
    TEXT(PC_TEL_NO2, Info, Stored, "", 0)               \
    TEXT(PC_FAX_NO, Info, Stored, "", 0)                \
    TEXT(PC_MAIL_ADDRESS, Info, Stored, "", 0)          \
    TEXT(MAIL_ADDRESS, Info, Stored, "", 0)             \
    TEXT(MAIL_FLG, Info, Stored, "", 0)                 \
    TEXT(LICENSE_NO, Info, Stored, "", 0)               \
    TEXT(LICENSE_NO_DAI, Info, Stored, "", 0)           \
    TEXT(LICENSE_NO_GO, Info, Stored, "", 0)            \
    TEXT(GET_LICENSE_DATE_YEAR, Info, Stored, "", 0)    \
    TEXT(GET_LICENSE_DATE_MONTH, Info, Stored, "", 0)   \
    TEXT(GET_LICENSE_DATE_DAY, Info, Stored, "", 0)     \
    TEXT(GET_LICENSE_NENGOU, Info, Stored, "", 0)       \
    TEXT(VALID_LICENSE_DATE_YEAR, Info, Stored, "", 0)  \
    TEXT(VALID_LICENSE_DATE_MONTH, Info, Stored, "", 0) \
    TEXT(VALID_LICENSE_DATE_DAY, Info, Stored, "", 0)   \
    TEXT(VALID_LICENSE_NENGOU, Info, Stored, "", 0)     \
    TEXT(DANTAI_FLG, Info, Stored, "", 16)              \
    TEXT(DANTAI_NAME, Info, Stored, "", 0)              \
    TEXT(OTHER_DANTAI_NAME, Info, Stored, "", 0)        \
    TEXT(KOUTORI_FLG, Info, Stored, "", 16)             \
    TEXT(OFFICE_HOURS, Add, Stored, "", 0)              \
    TEXT(DAY_OFF, Add, Stored, "", 0)                   \
    TEXT(COMPANY_COMMENT, Add, Stored, "", 0)           \
    TEXT(COMPANY_URL_COMMENT, Add, Stored, "", 0)       \
    TEXT(COMPANY_URL, Add, Stored, "", 0)               \
    TEXT(PHOTO_GRP1, Add, Stored, "", 0)                \
    TEXT(PHOTO_FILE1, Add, Stored, "", 0)               \
    TEXT(PHOTO_GRP2, Add, Stored, "", 0)                \
    TEXT(PHOTO_FILE2, Add, Stored, "", 0)               \
    FLAG(SEND_FLAG, Add)                                \
    TEXT(MANAGEMENT_TYPE_FLG, Add, Stored, "", 64)      \
    TEXT(BUSINESS_TYPE_FLG, Add, Stored, "", 64)        \
    TEXT(OS_VER, Add, Probed, "", 0)                    \
    TEXT(OS_MAJOR_VER, Add, Probed, "", 0)              \
    TEXT(OS_MINOR_VER, Add, Probed, "", 0)              \
    TEXT(OS_BUILD_VER, Add, Probed, "", 0)              \
    TEXT(CSD_VER, None, Probed, "", 0)                  \
    TEXT(NET_TYPE, Add, Probed, "", 0)                  \
    TEXT(IP_ADDRESS, Add, Probed, "", 0)                \
    TEXT(SYS_HD_CAP, Add, Probed, "", 0)                \
    TEXT(INS_HD_CAP, Add, Probed, "", 0)                \
    TEXT(INS_ORV_PATH, Add, Probed, "", 0)              \
    TEXT(MEMORY, Add, Probed, "", 0)                    \
    TEXT(CPU, Add, Unset, "", 0)                        \
    TEXT(IE_VER, Add, Probed, "", 0)                    \
    TEXT(PROXY_INFO, Add, Probed, "", 0)                \
    TEXT(INSERT_DATE, Info, Stored, "", 0)              \
    TEXT(UPDATE_DATE, Info, Stored, "", 0)              \
    TEXT(SERVICE_FLG, Info, Stored, "", 50)             \
    TEXT(PWD_CHG_FLG, Info, Stored, "", 0)
