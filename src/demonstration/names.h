#pragma once

#include <array>
#include <string_view>

/// Synthetic people and places: names that are common where the hospital stands, and nobody's in particular.
namespace opd::demonstration {

inline constexpr std::array<std::string_view, 120> surnames{
    "DELA CRUZ",   "SANTOS",     "REYES",        "GARCIA",       "RAMOS",       "MENDOZA",      "CRUZ",
    "BAUTISTA",    "GONZALES",   "FLORES",       "VILLANUEVA",   "FERNANDEZ",   "CASTILLO",     "RIVERA",
    "AQUINO",      "TORRES",     "DE LEON",      "CASTRO",       "MERCADO",     "DELOS SANTOS", "DE GUZMAN",
    "PASCUAL",     "SALVADOR",   "NAVARRO",      "MANALO",       "DOMINGO",     "TOLENTINO",    "SORIANO",
    "SANTIAGO",    "VALDEZ",     "PEREZ",        "GONZAGA",      "PEÑA",        "NUÑEZ",        "MUÑOZ",
    "IBAÑEZ",      "CASTAÑEDA",  "ZUÑIGA",       "SAN JUAN",     "SAN PEDRO",   "DEL ROSARIO",  "DELA ROSA",
    "DELOS REYES", "DE LA VEGA", "STA. MARIA",   "STO. DOMINGO", "MACARAEG",    "MAGBANUA",     "PANGILINAN",
    "LACSON",      "LIM",        "TAN",          "SY",           "CHUA",        "ONG",          "CO",
    "AGUILAR",     "ALVAREZ",    "ANDRADE",      "ANTONIO",      "ARELLANO",    "AVILA",        "BALTAZAR",
    "BELTRAN",     "BERNARDO",   "BUENAVENTURA", "CABRERA",      "CALDERON",    "CAMACHO",      "CARPIO",
    "CATACUTAN",   "CELESTINO",  "CONCEPCION",   "CORPUZ",       "CUEVAS",      "DIAZ",         "DIZON",
    "ENRIQUEZ",    "ESPINOSA",   "ESPIRITU",     "ESTRELLA",     "EVANGELISTA", "FAJARDO",      "FRANCISCO",
    "GALANG",      "GATCHALIAN", "GUERRERO",     "GUTIERREZ",    "HERNANDEZ",   "IGNACIO",      "JAVIER",
    "JIMENEZ",     "LAZARO",     "LOPEZ",        "LUNA",         "MAGPANTAY",   "MAGBITANG",    "MALLARI",
    "MANANSALA",   "MARASIGAN",  "MARTINEZ",     "MEDINA",       "MIRANDA",     "MOLINA",       "MORALES",
    "OCAMPO",      "ORTEGA",     "PADILLA",      "PANGANIBAN",   "PINEDA",      "QUINTO",       "ROMERO",
    "ROXAS",       "SALAZAR",    "SAMSON",       "SARMIENTO",    "TRINIDAD",    "UMALI",        "VELASCO",
    "ZAMORA"};

inline constexpr std::array<std::string_view, 60> maleNames{
    "JUAN",     "JOSE",     "ANTONIO",   "PEDRO",      "MANUEL",       "RICARDO",   "ROBERTO",   "EDUARDO",
    "FERNANDO", "RAMON",    "MARIO",     "ROLANDO",    "DANILO",       "ERNESTO",   "ALFREDO",   "ROGELIO",
    "RODRIGO",  "ARMANDO",  "JOHN PAUL", "JOHN MARK",  "MARK ANTHONY", "CHRISTIAN", "MICHAEL",   "ANGELO",
    "JOSHUA",   "GABRIEL",  "NATHANIEL", "RAFAEL",     "MIGUEL",       "CARLOS",    "LUIS",      "FRANCISCO",
    "EMMANUEL", "JEROME",   "KENNETH",   "JAYSON",     "RODEL",        "ARNEL",     "JOEL",      "NOEL",
    "REYNALDO", "BENJAMIN", "DOMINADOR", "FLORENCIO",  "ISIDRO",       "LEONARDO",  "LORENZO",   "MARCELO",
    "NESTOR",   "PABLO",    "TEODORO",   "VICENTE",    "WILFREDO",     "AGUSTIN",   "BONIFACIO", "CRISANTO",
    "DIOSDADO", "ELMER",    "GERARDO",   "JUAN CARLOS"};

inline constexpr std::array<std::string_view, 60> femaleNames{
    "MARIA",    "ANA",       "ROSA",      "CARMEN",     "TERESITA",     "ELENA",        "LOURDES",  "GLORIA",
    "CORAZON",  "ROSARIO",   "JOSEFINA",  "IMELDA",     "LETICIA",      "NORMA",        "EVELYN",   "MARILOU",
    "JOCELYN",  "MARICEL",   "MARIA LUZ", "MARY ANN",   "MARY GRACE",   "MARY JANE",    "ANGELICA", "KRISTINE JOY",
    "PRINCESS", "JASMINE",   "ANDREA",    "NICOLE",     "BEA",          "CAMILLE",      "PATRICIA", "ISABEL",
    "CATALINA", "ESPERANZA", "LIGAYA",    "LUZVIMINDA", "REMEDIOS",     "PURIFICACION", "MILAGROS", "NENITA",
    "ERLINDA",  "VIOLETA",   "CRISTINA",  "MA. TERESA", "MA. CRISTINA", "ROWENA",       "SHEILA",   "LIEZL",
    "CHERRY",   "DIVINA",    "EDITHA",    "FELICIDAD",  "GENOVEVA",     "HONORATA",     "JULIETA",  "LILIA",
    "MELINDA",  "PILAR",     "SOLEDAD",   "ZENAIDA"};

inline constexpr std::array<std::string_view, 24> streets{
    "RIZAL ST.",      "MABINI ST.",   "BONIFACIO ST.",   "DEL PILAR ST.", "LUNA ST.",          "QUEZON AVE.",
    "SAMPAGUITA ST.", "ROSAL ST.",    "ILANG-ILANG ST.", "NARRA ST.",     "ACACIA ST.",        "MOLAVE ST.",
    "BURGOS ST.",     "GOMEZ ST.",    "ZAMORA ST.",      "JACINTO ST.",   "AGUINALDO ST.",     "MAHARLIKA ST.",
    "KALAYAAN AVE.",  "SAN JOSE ST.", "SANTOL ST.",      "MANGGA ST.",    "DAMA DE NOCHE ST.", "CAMIA ST."};

inline constexpr std::array<std::string_view, 20> occupations{
    "TEACHER",   "DRIVER",      "VENDOR",   "NURSE",   "HOMEMAKER",         "FARMER", "CARPENTER",
    "CLERK",     "STUDENT",     "ENGINEER", "GUARD",   "ELECTRICIAN",       "COOK",   "TAILOR",
    "FISHERMAN", "SALES CLERK", "MECHANIC", "RETIRED", "CALL CENTER AGENT", "MASON"};

inline constexpr std::array<std::string_view, 24> complaints{"FEVER FOR THREE DAYS",
                                                             "COUGH AND COLDS",
                                                             "HEADACHE",
                                                             "ABDOMINAL PAIN",
                                                             "DIZZINESS",
                                                             "CHEST PAIN",
                                                             "SORE THROAT",
                                                             "BACK PAIN",
                                                             "SKIN RASH",
                                                             "JOINT PAIN",
                                                             "LOOSE BOWEL MOVEMENT",
                                                             "BLURRED VISION",
                                                             "DIFFICULTY BREATHING",
                                                             "EAR PAIN",
                                                             "TOOTHACHE",
                                                             "FOLLOW-UP",
                                                             "PRENATAL CHECK-UP",
                                                             "BURNING URINATION",
                                                             "VOMITING",
                                                             "WOUND DRESSING",
                                                             "NUMBNESS",
                                                             "INSOMNIA",
                                                             "LOSS OF APPETITE",
                                                             "ROUTINE CHECK-UP"};

} // namespace opd::demonstration
