-- The tables of the office's database. Texts may be null; a text column's width is the limit of the field that fills
-- it, in bytes of the code page, and is there for the reader: the engine does not enforce it.

BEGIN;

-- One row a company (a user of the suite). USER_ID is '---------' until the server has numbered the company.
CREATE TABLE TBL_CUSTOMER_INFO (
    USER_ID                  VARCHAR(9)   NOT NULL PRIMARY KEY,
    USER_PASSWD              VARCHAR(10),
    GROUP_NAME               VARCHAR(40),
    COMPANY_NAME             VARCHAR(60),
    COMPANY_KANA             VARCHAR(120),
    OFFICE_NAME              VARCHAR(60),
    POST_CODE                VARCHAR(8),
    ADDRESS_CODE             VARCHAR(11),
    ADDRESS                  VARCHAR(120),
    ADDRESS_NUMBER           VARCHAR(4),
    ADDRESS_GOU              VARCHAR(4),
    ADDRESS_OTHER            VARCHAR(60),
    DAIHYO_NAME              VARCHAR(40),
    DAIHYO_NAME_KANA         VARCHAR(80),
    TAKKEN_SYUNIN_NAME       VARCHAR(40),
    TANTO_NAME               VARCHAR(40),
    TEL_NO1                  VARCHAR(13),
    TEL_NO2                  VARCHAR(13),  -- free dial
    FAX_NO                   VARCHAR(13),
    TIKU_CODE                VARCHAR(4),   -- the first two characters of RAILROAD_CODE and '00'
    AREA_CODE                VARCHAR(5),   -- the first five characters of ADDRESS_CODE
    RAILROAD_CODE            VARCHAR(6),
    RAILROAD_NAME            VARCHAR(40),
    STATION_CODE             VARCHAR(3),
    STATION_NAME             VARCHAR(40),
    WALK_MINUTES             VARCHAR(2),
    BUS_ROUTE                VARCHAR(48),
    BUSSTOP                  VARCHAR(24),
    BUS_MINUTES              VARCHAR(2),
    TEIHO_MINUTES            VARCHAR(2),
    CAR_TARGET               VARCHAR(24),
    CAR_MINUTES              VARCHAR(2),
    CAR_DISTANCE             VARCHAR(4),   -- km, one decimal
    SAME_CHECK               VARCHAR(1),   -- '1': the PC stands at the address above, and the PC block is blank
    PC_OFFICE_NAME           VARCHAR(60),
    PC_POST_CODE             VARCHAR(8),
    PC_ADDRESS_CODE          VARCHAR(11),
    PC_ADDRESS               VARCHAR(120),
    PC_ADDRESS_NUMBER        VARCHAR(4),
    PC_ADDRESS_GOU           VARCHAR(4),
    PC_TANTO_NAME            VARCHAR(60),
    PC_TEL_NO1               VARCHAR(13),
    PC_TEL_NO2               VARCHAR(13),
    PC_FAX_NO                VARCHAR(13),
    PC_MAIL_ADDRESS          VARCHAR(64),
    MAIL_ADDRESS             VARCHAR(64),
    MAIL_FLG                 VARCHAR(1),   -- other programs' own, read here and never written
    LICENSE_NO               VARCHAR(40),  -- licensing authority, an ITEM_NAME of type '002'
    LICENSE_NO_DAI           VARCHAR(2),
    LICENSE_NO_GO            VARCHAR(6),
    GET_LICENSE_NENGOU       VARCHAR(4),   -- era, an ITEM_NAME of type '003'
    GET_LICENSE_DATE_YEAR    VARCHAR(4),
    GET_LICENSE_DATE_MONTH   VARCHAR(2),
    GET_LICENSE_DATE_DAY     VARCHAR(2),
    VALID_LICENSE_NENGOU     VARCHAR(4),
    VALID_LICENSE_DATE_YEAR  VARCHAR(4),
    VALID_LICENSE_DATE_MONTH VARCHAR(2),
    VALID_LICENSE_DATE_DAY   VARCHAR(2),
    DANTAI_FLG               VARCHAR(16),  -- '0' or '1' by position, as in the other flag texts
    DANTAI_NAME              VARCHAR(60),  -- an ITEM_NAME of type '004'
    OTHER_DANTAI_NAME        VARCHAR(60),
    KOUTORI_FLG              VARCHAR(16),
    INSERT_DATE              VARCHAR(17),  -- 'YYYYMMDD hh:mm:ss'
    UPDATE_DATE              VARCHAR(17),
    SERVICE_FLG              VARCHAR(50),  -- '2' at position 26: member of the listing service
    PWD_CHG_FLG              VARCHAR(1),   -- '2': password changed and not yet sent, '1': sent
    CONTRACT_PUBLISHNUMBER   INTEGER       -- listings under contract; null: no contract
);

-- What a company shows of itself, and the computer that it was last saved on.
CREATE TABLE TBL_CUSTOMER_ADD (
    USER_ID                  VARCHAR(9)   NOT NULL PRIMARY KEY,
    OFFICE_HOURS             VARCHAR(100),
    DAY_OFF                  VARCHAR(100),
    COMPANY_COMMENT          VARCHAR(200),
    COMPANY_URL_COMMENT      VARCHAR(128),
    COMPANY_URL              VARCHAR(96),
    PHOTO_FILE1              VARCHAR(40),  -- name without folder
    PHOTO_FILE2              VARCHAR(40),
    PHOTO_GRP1               VARCHAR(40),  -- an ITEM_NAME of type '005'
    PHOTO_GRP2               VARCHAR(40),
    SEND_FLAG                BOOLEAN      NOT NULL DEFAULT FALSE,  -- a photo was chosen and not yet sent
    MANAGEMENT_TYPE_FLG      VARCHAR(64),
    BUSINESS_TYPE_FLG        VARCHAR(64),
    OS_VER                   VARCHAR(80),
    OS_MAJOR_VER             VARCHAR(10),
    OS_MINOR_VER             VARCHAR(10),
    OS_BUILD_VER             VARCHAR(40),
    NET_TYPE                 VARCHAR(40),
    IP_ADDRESS               VARCHAR(45),
    SYS_HD_CAP               VARCHAR(40),
    INS_HD_CAP               VARCHAR(40),
    INS_ORV_PATH             VARCHAR(255),
    MEMORY                   VARCHAR(20),
    CPU                      VARCHAR(80),
    IE_VER                   VARCHAR(40),
    PROXY_INFO               VARCHAR(255)
);

-- The dates of the contract, kept by other programs. Each company has a row here.
CREATE TABLE TBL_CUSTOMER_DATE (
    USER_ID                  VARCHAR(9)   NOT NULL PRIMARY KEY,
    CONTRACT_DATE            VARCHAR(8),   -- 'YYYYMMDD'
    BILLING_DATE             VARCHAR(8),
    LAST_SEND_DATE           VARCHAR(17)
);

-- Who works on what. No key on purpose: a second row does no harm, while a refused one would leave a terminal on a page
-- without any lock.
CREATE TABLE TBL_LOCK (
    USER_ID                  VARCHAR(9)   NOT NULL,
    PROPERTY_TYPE_CODE       VARCHAR(4)   NOT NULL,
    PROPERTY_NO              VARCHAR(8)   NOT NULL,
    LOCAL_INFO               VARCHAR(255) NOT NULL,  -- name of the computer
    INSERT_DATE              VARCHAR(19)              -- 'yyyy/mm/dd hh:mm:ss'
);

-- Lists of words by TYPE_CODE: '002' licensing authorities, '003' eras, '004' associations, '005' photo captions.
CREATE TABLE MST_OTHERS (
    TYPE_CODE                VARCHAR(3)   NOT NULL,
    ITEM_CODE                VARCHAR(4)   NOT NULL,
    ITEM_NAME                VARCHAR(60)  NOT NULL,
    SORT_KEY                 INTEGER      NOT NULL,
    DEL_FLAG                 BOOLEAN      NOT NULL DEFAULT FALSE,
    PRIMARY KEY (TYPE_CODE, ITEM_CODE)
);

CREATE TABLE MST_PROPERTY_TYPE (
    PROPERTY_TYPE_CODE       VARCHAR(4)   NOT NULL PRIMARY KEY,  -- the first two characters are the kind
    PROPERTY_TYPE_NAME       VARCHAR(40)  NOT NULL,
    SORT_KEY                 INTEGER      NOT NULL,
    DEL_FLAG                 BOOLEAN      NOT NULL DEFAULT FALSE
);

-- The delete flag is spelled otherwise here than in the tables above; the programs of the suite rely on it.
CREATE TABLE MST_TIKU (
    TIKU_CODE                VARCHAR(4)   NOT NULL PRIMARY KEY,
    TIKU_NAME                VARCHAR(40)  NOT NULL,
    SORT_KEY                 INTEGER      NOT NULL,
    DEL_FLG                  BOOLEAN      NOT NULL DEFAULT FALSE
);

CREATE TABLE MST_CORP (
    CORP_CODE                VARCHAR(2)   NOT NULL PRIMARY KEY,
    CORP_NAME                VARCHAR(40)  NOT NULL
);

COMMIT;
