#include "adapters/sqlite/generator/reference.h"

#include "adapters/sqlite/generator/names.h"
#include "adapters/sqlite/generator/random.h"

namespace opd::adapters::sqlite {

namespace {

using Row = std::vector<std::string_view>;

/// Inserts rows of texts into a table, as many columns as each row has.
void insert(Database& database, const std::string& table, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        std::string marks;
        for (std::size_t i = 0; i < row.size(); ++i)
            marks += i == 0 ? "?" : ", ?";
        Query query(database, ("INSERT INTO " + table + " VALUES (" + marks + ")").c_str());
        for (std::size_t i = 0; i < row.size(); ++i)
            query.bind(static_cast<int>(i) + 1, std::string{row[i]});
        query.next();
    }
}

void insertPlaces(Database& database) {
    insert(database, "Build_File_tbCoAddress",
           {{"1000", "MANILA", "METRO MANILA"},
            {"1100", "QUEZON CITY", "METRO MANILA"},
            {"1200", "MAKATI", "METRO MANILA"},
            {"1300", "PASAY", "METRO MANILA"},
            {"1400", "CALOOCAN", "METRO MANILA"},
            {"1440", "VALENZUELA", "METRO MANILA"},
            {"1470", "MALABON", "METRO MANILA"},
            {"1485", "NAVOTAS", "METRO MANILA"},
            {"1500", "SAN JUAN", "METRO MANILA"},
            {"1550", "MANDALUYONG", "METRO MANILA"},
            {"1600", "PASIG", "METRO MANILA"},
            {"1630", "TAGUIG", "METRO MANILA"},
            {"1700", "PARAÑAQUE", "METRO MANILA"},
            {"1740", "LAS PIÑAS", "METRO MANILA"},
            {"1770", "MUNTINLUPA", "METRO MANILA"},
            {"1800", "MARIKINA", "METRO MANILA"},
            {"1870", "ANTIPOLO", "RIZAL"},
            {"1900", "CAINTA", "RIZAL"},
            {"1920", "TAYTAY", "RIZAL"},
            {"2000", "SAN FERNANDO", "PAMPANGA"},
            {"2009", "ANGELES", "PAMPANGA"},
            {"2100", "BALANGA", "BATAAN"},
            {"2200", "OLONGAPO", "ZAMBALES"},
            {"2300", "TARLAC", "TARLAC"},
            {"2400", "DAGUPAN", "PANGASINAN"},
            {"2500", "SAN FERNANDO", "LA UNION"},
            {"2600", "BAGUIO", "BENGUET"},
            {"2700", "VIGAN", "ILOCOS SUR"},
            {"2900", "LAOAG", "ILOCOS NORTE"},
            {"3000", "MALOLOS", "BULACAN"},
            {"3020", "MEYCAUAYAN", "BULACAN"},
            {"3100", "CABANATUAN", "NUEVA ECIJA"},
            {"3500", "TUGUEGARAO", "CAGAYAN"},
            {"4000", "SAN PABLO", "LAGUNA"},
            {"4023", "SAN PEDRO", "LAGUNA"},
            {"4027", "CALAMBA", "LAGUNA"},
            {"4100", "CAVITE CITY", "CAVITE"},
            {"4102", "BACOOR", "CAVITE"},
            {"4103", "IMUS", "CAVITE"},
            {"4114", "DASMARIÑAS", "CAVITE"},
            {"4200", "BATANGAS CITY", "BATANGAS"},
            {"4217", "LIPA", "BATANGAS"},
            {"4301", "LUCENA", "QUEZON"},
            {"4400", "NAGA", "CAMARINES SUR"},
            {"4500", "LEGAZPI", "ALBAY"},
            {"5000", "ILOILO CITY", "ILOILO"},
            {"6000", "CEBU CITY", "CEBU"},
            {"6100", "BACOLOD", "NEGROS OCCIDENTAL"},
            {"6500", "TACLOBAN", "LEYTE"},
            {"7000", "ZAMBOANGA CITY", "ZAMBOANGA DEL SUR"},
            {"8000", "DAVAO CITY", "DAVAO DEL SUR"},
            {"9000", "CAGAYAN DE ORO", "MISAMIS ORIENTAL"}});
    insert(database, "Build_File_tbCoBarangay",
           {{"BAG01", "BAGONG SILANG"},
            {"BAG02", "BAGUMBAYAN"},
            {"BAG03", "BAGONG BARRIO"},
            {"MAL01", "MALANDAY"},
            {"POB01", "POBLACION"},
            {"SAI01", "SAN ISIDRO"},
            {"SAJ01", "SAN JOSE"},
            {"SAR01", "SAN ROQUE"},
            {"STC01", "SANTA CRUZ"},
            {"STN01", "SANTO NIÑO"},
            {"TAT01", "TATALON"},
            {"PIN01", "PINAGKAISAHAN"}});
}

void insertPeopleCodes(Database& database) {
    insert(database, "Build_File_tbCoNationality",
           {{"1", "FILIPINO"},
            {"2", "AMERICAN"},
            {"3", "CHINESE"},
            {"4", "JAPANESE"},
            {"5", "KOREAN"},
            {"6", "INDIAN"},
            {"7", "BRITISH"},
            {"8", "AUSTRALIAN"},
            {"9", "GERMAN"},
            {"10", "SPANISH"},
            {"11", "VIETNAMESE"},
            {"12", "INDONESIAN"}});
    insert(database, "Build_File_tbCoReligion",
           {{"1", "ROMAN CATHOLIC"},
            {"2", "ISLAM"},
            {"3", "PROTESTANT"},
            {"4", "BAPTIST"},
            {"5", "METHODIST"},
            {"6", "BUDDHIST"},
            {"7", "AGLIPAYAN"},
            {"8", "BORN AGAIN CHRISTIAN"},
            {"9", "HINDU"},
            {"10", "NONE"}});
    insert(database, "Build_File_tbCoAdmissionType",
           {{"1", "PAY"}, {"2", "CHARITY"}, {"3", "EMPLOYEE"}, {"4", "INDIGENT"}});
    insert(database, "Build_File_tbCoPayCode",
           {{"P1", "CASH", "A"},
            {"P2", "CHARGE TO COMPANY", "A"},
            {"P3", "CHARGE TO HMO", "A"},
            {"P9", "OLD CHARGE", "I"}});
    insert(database, "Build_File_tbCoCompany",
           {{"HMO-01", "BAYANIHAN HEALTH PLANS", "H"},
            {"HMO-02", "SILANGAN MEDICAL CARE", "H"},
            {"INS-01", "MALAYA INSURANCE", "P"},
            {"EMP-01", "HOSPITAL EMPLOYEES MEDICINE", "S"},
            {"COM-01", "TANGLAW FOODS", "C"},
            {"COM-02", "BUKID TEXTILE MILLS", "C"},
            {"PHIC", "NATIONAL HEALTH INSURANCE", "P"},
            {"PHILHEAL", "NATIONAL HEALTH INSURANCE", "P"},
            {"RW-A", "MEMBERS A", "M"},
            {"RW-B", "MEMBERS B", "M"},
            {"RW-C", "MEMBERS C", "M"},
            {"RW-D", "MEMBERS D", "M"},
            {"RW-E", "MEMBERS E", "M"}});
}

void insertClinicalCodes(Database& database) {
    insert(database, "Build_File_tbCoService",
           {{"1", "GENERAL MEDICINE"},
            {"2", "SURGERY"},
            {"3", "CARDIOLOGY"},
            {"4", "DERMATOLOGY"},
            {"5", "ENT"},
            {"6", "OPHTHALMOLOGY"},
            {"7", "ORTHOPEDICS"},
            {"8", "UROLOGY"},
            {"9", "GYNECOLOGY"},
            {"10", "NEUROLOGY"},
            {"11", "PULMONOLOGY"},
            {"12", "DENTAL"},
            {"13", "NEWBORN"},
            {"14", "PEDIATRICS"},
            {"15", "PSYCHIATRY"},
            {"16", "OBSTETRICS"}});
    insert(database, "Build_File_tbCoAllergy",
           {{"A01", "PENICILLIN"},
            {"A02", "ASPIRIN"},
            {"A03", "SEAFOOD"},
            {"A04", "PEANUT"},
            {"A05", "EGG"},
            {"A06", "MILK"},
            {"A07", "DUST"},
            {"A08", "POLLEN"},
            {"A09", "SULFA"},
            {"A10", "IBUPROFEN"},
            {"A11", "LATEX"},
            {"A12", "INSECT BITE"}});
    insert(database, "Build_File_tbCoOtherRevenue",
           {{"C01", "AA", "CONSULTATION"},
            {"C02", "AA", "FOLLOW-UP"},
            {"C03", "AA", "MEDICAL CERTIFICATE"},
            {"C04", "AA", "PRE-EMPLOYMENT EXAMINATION"},
            {"L01", "LB", "LABORATORY"}});
    int number = 0;
    for (const std::string_view complaint : complaints) {
        const std::string code = numbered("CC", ++number, 3);
        insert(database, "Build_File_tbCoChiefComplaint", {{code, complaint}});
    }
}

void insertDoctors(Database& database) {
    Random random(7); // the staff is the same in every hospital
    Query query(database, "INSERT INTO Build_File_tbCoDoctor VALUES (?, ?, ?, ?, ?, ?)");
    for (int number = 1; number <= doctorCount; ++number) {
        query.bind(1, numbered("D", number, 3));
        query.bind(2, std::string{random.pick(surnames)});
        query.bind(3, std::string{random.chance(50) ? random.pick(maleNames) : random.pick(femaleNames)});
        query.bind(4, random.chance(80) ? std::string{random.pick(surnames)} : std::string{});
        query.bind(5, std::to_string(1 + number % 16));
        query.bind(6, std::int64_t{random.below(200)});
        query.next();
        query.reset();
    }
}

} // namespace

void insertReferenceData(Database& database) {
    insertPlaces(database);
    insertPeopleCodes(database);
    insertClinicalCodes(database);
    insertDoctors(database);
}

} // namespace opd::adapters::sqlite
