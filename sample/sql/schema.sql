-- The tables of the office's database, for both kinds of store. Texts may be null. The number behind a text column is
-- the limit of the field that fills it, in bytes of the code page; the engines do not enforce it, so that a longer value
-- of another program (a path, the name of a computer) never keeps a company from being saved.

BEGIN;

-- One row a company (a user of the suite). USER_ID is '---------' until the server has numbered the company.
CREATE TABLE TBL_CUSTOMER_INFO (
    USER_ID                  TEXT NOT NULL PRIMARY KEY, -- 9
    USER_PASSWD              TEXT,         -- 10
    GROUP_NAME               TEXT,         -- 40
    COMPANY_NAME             TEXT,         -- 60
    COMPANY_KANA             TEXT,         -- 120
    OFFICE_NAME              TEXT,         -- 60
    POST_CODE                TEXT,         -- 8
    ADDRESS_CODE             TEXT,         -- 11
    ADDRESS                  TEXT,         -- 120
    ADDRESS_NUMBER           TEXT,         -- 4
    ADDRESS_GOU              TEXT,         -- 4
    ADDRESS_OTHER            TEXT,         -- 60
    DAIHYO_NAME              TEXT,         -- 40
    DAIHYO_NAME_KANA         TEXT,         -- 80
    TAKKEN_SYUNIN_NAME       TEXT,         -- 40
    TANTO_NAME               TEXT,         -- 40
    TEL_NO1                  TEXT,         -- 13
    TEL_NO2                  TEXT,         -- 13: free dial
    FAX_NO                   TEXT,         -- 13
    TIKU_CODE                TEXT,         -- 4: the first two characters of RAILROAD_CODE and '00'
    AREA_CODE                TEXT,         -- 5: the first five characters of ADDRESS_CODE
    RAILROAD_CODE            TEXT,         -- 6
    RAILROAD_NAME            TEXT,         -- 40
    STATION_CODE             TEXT,         -- 3
    STATION_NAME             TEXT,         -- 40
    WALK_MINUTES             TEXT,         -- 2
    BUS_ROUTE                TEXT,         -- 48
    BUSSTOP                  TEXT,         -- 24
    BUS_MINUTES              TEXT,         -- 2
    TEIHO_MINUTES            TEXT,         -- 2
    CAR_TARGET               TEXT,         -- 24
    CAR_MINUTES              TEXT,         -- 2
    CAR_DISTANCE             TEXT,         -- 4: km, one decimal
    SAME_CHECK               TEXT,         -- 1: '1': the PC stands at the address above, and the PC block is blank
    PC_OFFICE_NAME           TEXT,         -- 60
    PC_POST_CODE             TEXT,         -- 8
    PC_ADDRESS_CODE          TEXT,         -- 11
    PC_ADDRESS               TEXT,         -- 120
    PC_ADDRESS_NUMBER        TEXT,         -- 4
    PC_ADDRESS_GOU           TEXT,         -- 4
    PC_TANTO_NAME            TEXT,         -- 60
    PC_TEL_NO1               TEXT,         -- 13
    PC_TEL_NO2               TEXT,         -- 13
    PC_FAX_NO                TEXT,         -- 13
    PC_MAIL_ADDRESS          TEXT,         -- 64
    MAIL_ADDRESS             TEXT,         -- 64
    MAIL_FLG                 TEXT,         -- 1: other programs' own, read here and never written
    LICENSE_NO               TEXT,         -- 40: licensing authority, an ITEM_NAME of type '002'
    LICENSE_NO_DAI           TEXT,         -- 2
    LICENSE_NO_GO            TEXT,         -- 6
    GET_LICENSE_NENGOU       TEXT,         -- 4: era, an ITEM_NAME of type '003'
    GET_LICENSE_DATE_YEAR    TEXT,         -- 4
    GET_LICENSE_DATE_MONTH   TEXT,         -- 2
    GET_LICENSE_DATE_DAY     TEXT,         -- 2
    VALID_LICENSE_NENGOU     TEXT,         -- 4
    VALID_LICENSE_DATE_YEAR  TEXT,         -- 4
    VALID_LICENSE_DATE_MONTH TEXT,         -- 2
    VALID_LICENSE_DATE_DAY   TEXT,         -- 2
    DANTAI_FLG               TEXT,         -- 16: '0' or '1' by position, as in the other flag texts
    DANTAI_NAME              TEXT,         -- 60: an ITEM_NAME of type '004'
    OTHER_DANTAI_NAME        TEXT,         -- 60
    KOUTORI_FLG              TEXT,         -- 16
    INSERT_DATE              TEXT,         -- 17: 'YYYYMMDD hh:mm:ss'
    UPDATE_DATE              TEXT,         -- 17
    SERVICE_FLG              TEXT,         -- 50: '2' at position 26: member of the listing service
    PWD_CHG_FLG              TEXT,         -- 1: '2': password changed and not yet sent, '1': sent
    CONTRACT_PUBLISHNUMBER   INTEGER       -- listings under contract; null: no contract
);

-- What a company shows of itself, and the computer that it was last saved on.
CREATE TABLE TBL_CUSTOMER_ADD (
    USER_ID                  TEXT NOT NULL PRIMARY KEY, -- 9
    OFFICE_HOURS             TEXT,         -- 100
    DAY_OFF                  TEXT,         -- 100
    COMPANY_COMMENT          TEXT,         -- 200
    COMPANY_URL_COMMENT      TEXT,         -- 128
    COMPANY_URL              TEXT,         -- 96
    PHOTO_FILE1              TEXT,         -- 40: name without folder
    PHOTO_FILE2              TEXT,         -- 40
    PHOTO_GRP1               TEXT,         -- 40: an ITEM_NAME of type '005'
    PHOTO_GRP2               TEXT,         -- 40
    SEND_FLAG                BOOLEAN      NOT NULL DEFAULT FALSE,  -- a photo was chosen and not yet sent
    MANAGEMENT_TYPE_FLG      TEXT,         -- 64
    BUSINESS_TYPE_FLG        TEXT,         -- 64
    OS_VER                   TEXT,         -- 80
    OS_MAJOR_VER             TEXT,         -- 10
    OS_MINOR_VER             TEXT,         -- 10
    OS_BUILD_VER             TEXT,         -- 40
    NET_TYPE                 TEXT,         -- 40
    IP_ADDRESS               TEXT,         -- 45
    SYS_HD_CAP               TEXT,         -- 40
    INS_HD_CAP               TEXT,         -- 40
    INS_ORV_PATH             TEXT,         -- 255
    MEMORY                   TEXT,         -- 20
    CPU                      TEXT,         -- 80
    IE_VER                   TEXT,         -- 40
    PROXY_INFO               TEXT          -- 255
);

-- The dates of the contract, kept by other programs. Each company has a row here.
CREATE TABLE TBL_CUSTOMER_DATE (
    USER_ID                  TEXT NOT NULL PRIMARY KEY, -- 9
    CONTRACT_DATE            TEXT,         -- 8: 'YYYYMMDD'
    BILLING_DATE             TEXT,         -- 8
    LAST_SEND_DATE           TEXT          -- 17
);

-- Who works on what. No key on purpose: a second row does no harm, while a refused one would leave a terminal on a page
-- without any lock.
CREATE TABLE TBL_LOCK (
    USER_ID                  TEXT NOT NULL, -- 9
    PROPERTY_TYPE_CODE       TEXT NOT NULL, -- 4
    PROPERTY_NO              TEXT NOT NULL, -- 8
    LOCAL_INFO               TEXT NOT NULL, -- 255: name of the computer
    INSERT_DATE              TEXT          -- 19: 'yyyy/mm/dd hh:mm:ss'
);

-- Lists of words by TYPE_CODE: '002' licensing authorities, '003' eras, '004' associations, '005' photo captions.
CREATE TABLE MST_OTHERS (
    TYPE_CODE                TEXT NOT NULL, -- 3
    ITEM_CODE                TEXT NOT NULL, -- 4
    ITEM_NAME                TEXT NOT NULL, -- 60
    SORT_KEY                 INTEGER      NOT NULL,
    DEL_FLAG                 BOOLEAN      NOT NULL DEFAULT FALSE,
    PRIMARY KEY (TYPE_CODE, ITEM_CODE)
);

CREATE TABLE MST_PROPERTY_TYPE (
    PROPERTY_TYPE_CODE       TEXT NOT NULL PRIMARY KEY, -- 4: the first two characters are the kind
    PROPERTY_TYPE_NAME       TEXT NOT NULL, -- 40
    SORT_KEY                 INTEGER      NOT NULL,
    DEL_FLAG                 BOOLEAN      NOT NULL DEFAULT FALSE
);

-- The delete flag is spelled otherwise here than in the tables above; the programs of the suite rely on it.
CREATE TABLE MST_TIKU (
    TIKU_CODE                TEXT NOT NULL PRIMARY KEY, -- 4
    TIKU_NAME                TEXT NOT NULL, -- 40
    SORT_KEY                 INTEGER      NOT NULL,
    DEL_FLG                  BOOLEAN      NOT NULL DEFAULT FALSE
);

CREATE TABLE MST_CORP (
    CORP_CODE                TEXT NOT NULL PRIMARY KEY, -- 2
    CORP_NAME                TEXT NOT NULL -- 40
);

COMMIT;
