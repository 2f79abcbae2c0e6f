#pragma once

#include <string_view>

namespace zelvo {

// Every query that the office's screens, lists and reports ask, as it is put together from its pieces, and which
// records of a small office it finds.

/// A record of the small office: "FIELD=text;FIELD=text". The records of a database are numbered from 1.
struct StoredRecord {
  std::string_view file;
  std::string_view fields;
};

struct StatementCase {
  std::string_view file;
  const char* query;
  const char* found;  ///< the numbers of the records, in the order in which they come
};

inline constexpr StoredRecord storedRecords[] = {
    {"db1.mdb",
     "PERMIT=25-1;VIOLOPEN=O;SEC=12;SUD=5;BLK=3;LOT=45;LOD=1;SUB=2;OWNNAME1=O'Brien, Ann;OWNADDR1=5 Oak Street;"
     "FILEMONTH=3;FILEDATE=09;FILEYEAR=2025;PRMFOR=Dwelling;USEBLDG=One Family;VD3=3/9/2025;VD4=3/9/2026;MM2=1;"
     "LINK02=a|b;BLDGPERMYY=25;BLDGPRM=1"},
    {"db1.mdb",
     "PERMIT=25-2;VIOLOPEN=C;SEC=12;BLK=3;LOT=46;OWNNAME1=Smith, John;OWNADDR1=7 Elm Street;FILEMONTH=03;FILEDATE=02;"
     "FILEYEAR=2025;PRMFOR=Garage;USEBLDG=Two Family;VD3=3/10/2025;VD4=4/1/2025;MM2=0;BLDGPERMYY=25;BLDGPRM=2"},
    {"db1.mdb",
     "PERMIT=24-9;VIOLOPEN=O;SEC=13;BLK=0;LOT=1;OWNNAME1=smithers;FILEMONTH=12;FILEDATE=01;FILEYEAR=2024;"
     "PRMFOR=Dwelling;VD3=12/1/2024;VD4=12/1/2025;BLDGPERMYY=24;BLDGPRM=9"},
    {"db2.mdb",
     "RECNO=7;PERMIT=25-1;INSPCATEG=B;INSPTYPE=Footing;INSPINIT=Lee;INSPRESULT=P;INSPCOMM1=rebar seen;INSPMONT=3;"
     "INSPYEAR=2025;DATEINSP=3/9/2025;INSPDATE=4/1/2025;SEC=12;BLK=3;LOT=45;OWNPHONE=555-0100"},
    {"db2.mdb",
     "RECNO=12;PERMIT=25-2;INSPCATEG=C;INSPTYPE=Noise;INSPINIT=Ortiz;INSPMONT=03;INSPYEAR=2025;DATEINSP=3/10/2025;"
     "INSPDATE=12/31/2298;NRECNO=3/10/2025;NATURE=barking dog;INSVEST=Ortiz;COMNAME1=Roe;COMPHONE=555-0111;"
     "COMADDR1=9 Elm Street;SEC=12;BLK=3;LOT=46"},
    {"db3.mdb",
     "AFFIY=25;AFFIN=1;FILENO=25-1;APPLNAME=Roe, Jane;LOCN=5 Oak Street;AFFIMONTH=3;AFFIYEAR=2025;DATEAFFI=3/9/2025;"
     "PERMIT=25-1;APPLTYPE=E;PERMFEE=60;ESTCOST=1500;ADDLFEE=2.5;DESC=deck;SEC=12;BLK=3;LOT=45"},
    {"db3.mdb",
     "AFFIY=00;AFFIN=2;FILENO=00-2;APPLNAME=Ash;AFFIMONTH=12;AFFIYEAR=2025;DATEAFFI=12/1/2025;PERMIT=24-9;APPLTYPE=O;"
     "PERMFEE=25"},
    {"db4.mdb",
     "CERTOCCY=25;CERTOCCN=2;CERTNO=25-2;PERMIT=25-1;NAME=O'Brien, Ann;PLOCN=5 Oak Street;TYPE=O;COMONTH=03;"
     "COYEAR=2025;DATECO=3/9/2025;FEE=100;NOTES=final;SEC=12;BLK=3;LOT=45"},
    {"db4.mdb",
     "CERTOCCY=25;CERTOCCN=1;CERTNO=25-1;PERMIT=25-1;NAME=Ash;TYPE=C;COMONTH=4;COYEAR=2025;DATECO=4/9/2025;FEE=50;"
     "SEC=12;BLK=4;LOT=45"},
    {"db5.mdb",
     "RECNO=3;PERMIT=25-1;ACTION=P;ASUD=1;DTEFU=3/18/2025;VIOLDATE=3/1/2025;MONT=3;YEAR=2025;FUMONT=3;FUYEAR=2025;"
     "SPARE1=2025;SPARE2=3;NAME1=O'Brien, Ann;OFFENSE=no permit;LOCN=5 Oak Street;INSP=Lee;SEC=12;BLK=3;LOT=45;"
     "COURTDT=5/1/2025;OFFTIMEAM=AM"},
    {"db5.mdb",
     "RECNO=4;ACTION=C;ASUD=0;DTEFU=12/31/1899;VIOLDATE=2/1/2025;MONT=02;YEAR=2025;FUMONT=03;FUYEAR=2025;NAME1=Ash;"
     "INSP=Ortiz"},
    {"db5.mdb", "RECNO=5;ACTION=O;DTEFU=3/1/2025;VIOLDATE=3/5/2024;MONT=03;YEAR=2024;NAME1=Roe;INSP=Lee, Kim"},
    {"db6.mdb", "RECNO=3;SEQ=2;NAME=Lee;ANOTES=second visit"},
    {"db6.mdb", "RECNO=3;SEQ=1;NAME=Lee;ANOTES=first visit"},
    {"db6.mdb", "RECNO=4;SEQ=1;NAME=Ortiz"},
    {"db7.mdb", "RECNO=25-2;INSCO1=Surety;ITYP1=Liability;IFR1=1/1/2025;ITO1=3/1/2025"},
    {"db7.mdb", "RECNO=25-1;INSCO1=Mutual;ITYP1=Liability;IFR1=1/1/2025;ITO1=5/1/2025"},
    {"cont.mdb", "RECNO=25-2;CINSCO1=Roe;EXTRA1=P"},
    {"cont.mdb", "RECNO=25-1;CINSCO1=Ash;EXTRA1=P"},
    {"db8.mdb",
     "ZNPERMIT=25-4;BLDGPERMYY=25;BLDGPRM=4;ZFILEDATE=3/9/2025;ZSTARTDATE=3/15/2025;ZEXPIRYDATE=4/1/2025;SEC=12;BLK=3;"
     "LOT=45;ZTYPE=Use;ZUSE=Home;ZCURZONE=R-1;ZFOLLOWUPBY=Lee;ZSTRUCTYPE=Shed;ZOWNRNAME1=O'Brien, Ann;FILEMONTH=3;"
     "FILEDATE=09;FILEYEAR=2025"},
    {"db8.mdb",
     "ZNPERMIT=25-3;BLDGPERMYY=25;BLDGPRM=3;ZFILEDATE=3/2/2025;ZEXPIRYDATE=9/1/2025;SEC=12;BLK=4;ZTYPE=Area;"
     "ZACC=Deck;ZFOOTTYPE=Slab;ZFOOTERMAT=Concrete;FILEMONTH=03;FILEDATE=02;FILEYEAR=2025;ZFOLLOWUPBY="},
    {"fdb.mdb",
     "FSBL=12-0-0-3-45;SEC=12;BLK=3;LOT=45;FLOCN1=5 Oak Street;FEXTRA=Store;FMAPNO=M-1;FSTRUCTYPE=Brick;"
     "FILEDATE=3/9/2025;FOWNRNAME1=Roe;FOWNRADDR1=1 Oak Street"},
    {"fdb.mdb", "FSBL=12-0-0-3-46;SEC=12;BLK=3;LOT=46;FLOCN1=7 Elm Street;FOWNRNAME1=Ash;FOWNRADDR1=2 Oak Street"},
    {"fins.mdb",
     "FISBL=12-0-0-3-45;FIUNIT=2A;FISTATUS=Scheduled;FINSDATE=3/9/2025;FNEXTTDATE=4/1/2025;FITYPE=Annual;"
     "FOCCNAME1=Roe;FLOCN1=5 Oak Street;FCERT=F-2;FTOTDUE=12.50;SEC=12;BLK=3;LOT=45"},
    {"fins.mdb",
     "FISBL=12-0-0-3-45;FIUNIT=1;FISTATUS=ReInspection;FINSDATE=1/1/2024;FNEXTTDATE=4/2/2025;FITYPE=Complaint;"
     "FOCCNAME1=Ash;FLOCN1=5 Oak Street;FCERT=F-1;FTOTDUE=0.00"},
    {"fins.mdb", "FISBL=12-0-0-3-46;FISTATUS=Pending;FINSDATE=3/10/2025;FOCCNAME1=Elm;FLOCN1=1 Elm Street;FTOTDUE="},
    {"pbfees.mdb",
     "PBFCASE=25-1;PBFEXTRA=P;PBFPAIDDATE=3/9/2025;PBFPAIDMM=3;PBFPAIDYY=2025;PBFBALDUE=0;PBFPROJNAME=12-0-0-3-45"},
    {"pbfees.mdb",
     "PBFCASE=25-1;PBFEXTRA=C;PBFPAIDDATE=4/9/2025;PBFPAIDMM=04;PBFPAIDYY=2025;PBFBALDUE=12.5;PBFPROJNAME=12-0-0-3-45"},
    {"meeting.mdb", "MDATE=3/20/2025;MFREQ=O;MYEAR=2025;MJUL=79;MNAME=Planning board"},
    {"meeting.mdb", "MDATE=3/5/2024;MFREQ=R;MREC=11;MYEAR=2024;MJUL=64;MNAME=Zoning board"},
    {"meeting.mdb", "MDATE=3/1/2023;MFREQ=O;MYEAR=2023;MJUL=60;MNAME=Past"},
    {"sbl.mdb",
     "SBLF=12-0-0-3-45;ASSOC=O'Brien, Ann;PERMIT=25-1;HISTORICAL=25-1*;LOCN1=5 Oak Street;OTHER=0;FAILED=0;VIOL=1;"
     "NOTES=fence;EASTCOORD=642100.5;NORTHCOORD=900200"},
    {"sbl.mdb",
     "SBLF=12-0-0-3-4;ASSOC=UNK;PERMIT=?;HISTORICAL=fence*;LOCN1=7 Elm Street;EASTCOORD=642300;NORTHCOORD=900250"},
    {"sbl.mdb", "SBLF=13-0-0-1-1;ASSOC=Ash;LOCN1=1 Far Road;EASTCOORD=0;NORTHCOORD="},
    {"rps.mdb", "RSBLF=12-0-0-3-45;RASSOC=O'Brien Ann;RLOCN1=5 Oak Street"},
};

inline constexpr StatementCase statementCases[] = {
    // building permits
    {"db1.mdb", "Select * from BLDGPERM order by PERMIT", "3 1 2"},
    {"db1.mdb", "Select * from BLDGPERM order by [PERMIT]", "3 1 2"},
    {"db1.mdb", "Select * from BLDGPERM where [PERMIT] = '25-1' order by PERMIT", "1"},
    {"db1.mdb", "Select * from BLDGPERM where [SEC] = '12' AND[BLK] = '3' order by [PERMIT]", "1 2"},
    {"db1.mdb",
     "Select * from BLDGPERM where [SEC] = '12' AND[SUD] = '5' AND[BLK] = '3' AND[LOT] = '45' AND[LOD] = '1' AND[SUB] "
     "= "
     "'2' order by [PERMIT]",
     "1"},
    {"db1.mdb", "Select * from BLDGPERM where [SEC] = '0' AND [BLK] = '0'  order by [PERMIT]", ""},
    {"db1.mdb", "Select * from BLDGPERM where [LOT] = '45' AND[PERMIT] like '%25%' order by [PERMIT]", "1"},
    {"db1.mdb",
     "Select * from BLDGPERM where [OWNNAME1] like '%o''b%' AND [OWNADDR1] like '%oak%' AND[PERMIT] like '%25%' AND "
     "[USEBLDG] like '%one%' AND [PRMFOR] like '%dwell%' AND[MM2] = '1' AND [LINK02] like '%|%' AND[VD3] = "
     "#03/09/2025# order by [PERMIT]",
     "1"},
    {"db1.mdb", "Select * from BLDGPERM where [VD3] > #03/08/2025# AND [VD3] < #03/10/2025# order by [PERMIT]", "1"},
    {"db1.mdb", "Select * from BLDGPERM where [FILEMONTH] = 3 and [FILEYEAR] = 2025 order by [FILEDATE]", "2 1"},
    {"db1.mdb", "Select * from BLDGPERM where [FILEYEAR] = 2024 order by [FILEDATE]", "3"},
    {"db1.mdb",
     "Select * from BLDGPERM where [FILEYEAR] = 2025 and [FILEMONTH] = 3 and [USEBLDG] = 'Two Family' and [PRMFOR] = "
     "'garage' order by [PERMIT]",
     "2"},
    {"db1.mdb",
     "Select * from BLDGPERM where [VD4] > #03/15/25# and [VD4] < #12/31/26# and [VIOLOPEN] <> 'C' order by [VD4]",
     "3 1"},
    {"db1.mdb",
     "Select * from BLDGPERM where [VD4] > #03/15/25# and [VD4] < #01/01/26# and [PRMFOR] = 'Dwelling' and [VIOLOPEN] "
     "<> 'C' order by [VD4]",
     "3"},
    {"db1.mdb", "Select * from BLDGPERM where [VIOLOPEN] = 'C' order by [PERMIT]", "2"},
    {"db1.mdb", "Select * from BLDGPERM where [VIOLOPEN] = 'O' order by [PERMIT]", "3 1"},
    {"db1.mdb",
     "Select * from BLDGPERM where [VD3] > #01/01/25# and [VD3] < #12/31/25# and [PRMFOR] = 'Dwelling' order by "
     "[PERMIT]",
     "1"},
    {"db1.mdb",
     "Select * from BLDGPERM where [SEC] like '%12%' AND [BLK] = '3' AND [LOT] = '45' AND [LOD] = '1' AND [SUB] = '2' "
     "AND [SUD] = '5' order by [PERMIT]",
     "1"},
    {"db1.mdb",
     "Select * from BLDGPERM where [PERMIT] = '25-2' AND [OWNNAME1] like '%SMITH%' AND [OWNADDR1] like '%elm%' AND "
     "[SEC] like '%12%' AND [BLK] like '%3%' AND [LOT] like '%46%' order by [PERMIT]",
     "2"},
    // insurance certificates and contacts of a permit
    {"db7.mdb", "Select * from INSBASE order by RECNO", "2 1"},
    {"db7.mdb", "Select * from INSBASE where [ITO1] > #03/15/25# and [ITO1] < #05/14/25# order by [ITO1]", "2"},
    {"db7.mdb", "Select * from INSBASE where [RECNO] = '25-2'", "1"},
    {"cont.mdb", "Select * from CONBASE order by RECNO", "2 1"},
    {"cont.mdb", "Select * from CONBASE where [RECNO] = '25-1' and [EXTRA1] = 'P'", "2"},
    // inspections and complaints
    {"db2.mdb", "Select * from INSPDTL order by [RECNO]", "2 1"},
    {"db2.mdb", "Select * from INSPDTL", "1 2"},
    {"db2.mdb", "Select * from INSPDTL where [PERMIT] = '25-1'", "1"},
    {"db2.mdb", "Select * from INSPDTL where [PERMIT] = '25-1' order by [RECNO]", "1"},
    {"db2.mdb", "Select * from INSPDTL where [SEC] = '12' AND[BLK] = '3' order by [RECNO]", "2 1"},
    {"db2.mdb",
     "Select * from INSPDTL where [PERMIT] like '%25-1%' AND [INSPCOMM1] like '%rebar%' AND [INSPINIT] like '%lee%' "
     "AND "
     "[RECNO] = 7 AND [INSPCATEG] = 'B' AND [INSPTYPE] = 'Footing' AND [DATEINSP] = #03/09/2025# AND [OWNPHONE] like "
     "'%0100%' order by [RECNO]",
     "1"},
    {"db2.mdb",
     "Select * from INSPDTL where [NRECNO] = #03/10/2025# AND [COMNAME1] like '%roe%' AND [COMADDR1] like '%elm%' AND "
     "[COMPHONE] like '%0111%' AND [INSVEST] like '%ort%' AND [NATURE] like '%dog%' order by [RECNO]",
     "2"},
    {"db2.mdb", "Select * from INSPDTL where [INSPDATE] > #03/15/25# and [INSPDATE] < #04/15/25# order by [INSPDATE]",
     "1"},
    {"db2.mdb", "Select * from INSPDTL where [INSPTYPE] = 'Footing' and [INSPCATEG] = 'B' order by [RECNO]", "1"},
    {"db2.mdb", "Select * from INSPDTL where  [INSPCATEG] = 'C' order by [RECNO]", "2"},
    {"db2.mdb",
     "Select * from INSPDTL where [INSPMONT] = 3 and [INSPYEAR] = 2025 and [INSPCATEG] <> 'C' order by [INSPMONT]",
     "1"},
    {"db2.mdb",
     "Select * from INSPDTL where [NATURE] <> '' and [NRECNO] > #03/01/25# and [NRECNO] < #04/01/25# and  [INSVEST] "
     "like '%Ortiz%' order by [NRECNO]",
     "2"},
    // affidavits
    {"db3.mdb", "Select * from AFFIDAVI order by [AFFIN]", "1 2"},
    {"db3.mdb", "Select * from AFFIDAVI order by AFFIN", "1 2"},
    {"db3.mdb", "Select * from AFFIDAVI where [PERMIT] = '25-1' order by [AFFIN]", "1"},
    {"db3.mdb", "Select * from AFFIDAVI where [SEC] = '12' order by [AFFIN]", "1"},
    {"db3.mdb",
     "Select * from AFFIDAVI where  [PERMIT] = '25-1' AND[APPLNAME] like '%roe%' AND[LOCN] like '%oak%' AND[DESC] like "
     "'%deck%' AND[FILENO] = '25-1' AND[PERMFEE] like '%60%' AND[ADDLFEE] like '%2.5%' AND[ESTCOST] like '%15%' "
     "AND[APPLTYPE] = 'e' AND[DATEAFFI] = #03/09/2025# order by [PERMIT]",
     "1"},
    {"db3.mdb", "Select * from AFFIDAVI where [AFFIMONTH] = 12 and [AFFIYEAR] = 2025 order by [AFFIN]", "2"},
    {"db3.mdb", "Select * from AFFIDAVI where [AFFIYEAR] = 2025", "1 2"},
    // certificates
    {"db4.mdb", "Select * from CERTOCCU order by [CERTOCCN]", "2 1"},
    {"db4.mdb", "Select * from CERTOCCU order by CERTNO", "2 1"},
    {"db4.mdb", "Select * from CERTOCCU where [PERMIT] = '25-1' order by [CERTOCCN]", "2 1"},
    {"db4.mdb", "Select * from CERTOCCU where [PERMIT] = '25-1' order by [CERTNO]", "2 1"},
    {"db4.mdb", "Select * from CERTOCCU where [PERMIT] = '25-1' order by [PERMIT]", "1 2"},
    {"db4.mdb", "Select * from CERTOCCU where [TYPE] = 'O'", "1"},
    {"db4.mdb", "Select * from CERTOCCU where [SEC] = '12' AND[BLK] = '4' order by [CERTNO]", "2"},
    {"db4.mdb",
     "Select * from CERTOCCU where [PERMIT] = '25-1' AND[NAME] like '%brien%' AND[PLOCN] like '%oak%' AND[NOTES] like "
     "'%FINAL%' AND[CERTNO] = '25-2' AND[TYPE] = 'O' AND[FEE] like '%100%' AND[DATECO] = #03/09/2025# order by "
     "[PERMIT]",
     "1"},
    {"db4.mdb", "Select * from CERTOCCU where [COMONTH] = 3 and [COYEAR] = 2025 order by [CERTNO]", "1"},
    {"db4.mdb", "Select * from CERTOCCU where [COYEAR] = 2025", "1 2"},
    {"db4.mdb", "Select * from CERTOCCU where [COYEAR] = 2025 and [TYPE] = 'O' order by [CERTNO]", "1"},
    // violations and the actions taken on them; the office is at March 15, 2025
    {"db5.mdb", "Select * from VIOLDATA order by RECNO", "1 2 3"},
    {"db5.mdb", "Select * from VIOLDATA where [SEC] = '12' AND[BLK] = '3'", "1"},
    {"db5.mdb", "Select * from VIOLDATA where ([ACTION] = 'O' or [ACTION] = 'P') order by [RECNO]", "1 3"},
    {"db5.mdb",
     "Select * from VIOLDATA where ([ACTION] = 'O' or [ACTION] = 'P') and [INSP] like '%Lee%' order by [RECNO]", "1 3"},
    {"db5.mdb",
     "Select * from VIOLDATA where [DTEFU] > #03/15/2025# and [DTEFU] < #03/22/2025# and [ACTION] = 'P' order by "
     "[RECNO]",
     "1"},
    {"db5.mdb", "Select * from VIOLDATA where [ACTION] = 'P' order by [RECNO]", "1"},
    {"db5.mdb", "Select * from VIOLDATA where [DTEFU] < #03/15/2025#  and [ACTION] = 'O' order by [RECNO]", "3"},
    {"db5.mdb",
     "Select * from VIOLDATA where [MONT] = 3 and [YEAR] = 2025 and ([ACTION] = 'P' or [ACTION] = 'O') order by "
     "[RECNO]",
     "1"},
    {"db5.mdb", "Select * from VIOLDATA where [YEAR] = 2024 and ([ACTION] = 'P' or [ACTION] = 'O')", "3"},
    {"db5.mdb", "Select * from VIOLDATA where [MONT] = 3 and [YEAR] = 2025", "1"},
    {"db5.mdb", "Select * from VIOLDATA where [YEAR] = 2025  and [ASUD] = '1'", "1"},
    {"db5.mdb", "Select * from VIOLDATA where [FUMONT] = 3 and [FUYEAR] = 2025 and [ACTION] = 'C'", "2"},
    {"db5.mdb", "Select * from VIOLDATA where [FUYEAR] = 2025 and [ACTION] = 'C'", "2"},
    {"db5.mdb", "Select * from VIOLDATA where [SPARE2] = '3' and [SPARE1] = '2025'", "1"},
    {"db5.mdb", "Select * from VIOLDATA where [SPARE1] = '2025' and [INSP] like '%Lee%'", "1"},
    {"db5.mdb",
     "Select * from VIOLDATA where [PERMIT] = '25-1' AND [RECNO] like '%3%' AND [LOCN] like '%oak%' AND [SEC] like "
     "'%12%' AND [BLK] = '3' AND [LOT] = '45' AND [INSP] like '%lee%' AND [ACTION] = 'P' AND [ASUD] = '1' AND "
     "[VIOLDATE] "
     "= #03/01/2025# AND [DTEFU] = #03/18/2025# AND [OFFTIMEAM] = 'AM' AND [NAME1] like '%brien%' AND [OFFENSE] like "
     "'%permit%' AND [COURTDT] = #05/01/2025# order by [RECNO]",
     "1"},
    {"db5.mdb",
     "Select * from VIOLDATA where [LOD] = '1' AND [SUB] = '2' AND [SUD] = '5' AND [TITLE] like '%x%' AND [OFFTIMEHR] "
     "like '%9%' AND [ADDR1] like '%x%' AND [PHONE] like '%5%' AND [LAWTYPE] like '%x%' AND [STATTYPE] like '%x%' AND "
     "[LAWSEC] like '%x%' AND [STATSEC] like '%x%' AND [LAWSUBD] like '%x%' AND [STATSUBD] like '%x%' AND [LAWTITLE] "
     "like '%x%' AND [STATTITLE] like '%x%' AND [NOTES] like '%x%' AND [COURTHR] like '%9%' AND [COURTAMPM] = 'PM' AND "
     "[JUDGE] like '%x%' AND [ADDR21] like '%x%' order by [RECNO]",
     ""},
    {"db6.mdb", "Select * from ORDINSP where RECNO ='3' order by SEQ", "2 1"},
    // zoning permits
    {"db8.mdb", "Select * from ZONEDAT order by BLDGPRM", "2 1"},
    {"db8.mdb", "Select * from ZONEDAT where [SEC] = '12' AND[BLK] = '3' order by [ZNPERMIT]", "1"},
    {"db8.mdb",
     "Select * from ZONEDAT where [ZNPERMIT] = '25-4' AND[ZOWNRNAME1] like '%brien%' AND [ZTYPE] like '%use%' AND "
     "[ZUSE] like '%home%' AND [ZCURZONE] like '%r-1%' AND [ZFOLLOWUPBY] like '%lee%' AND [ZSTRUCTYPE] like '%shed%' "
     "AND[ZSTARTDATE] = #03/15/2025# order by [ZNPERMIT]",
     "1"},
    {"db8.mdb",
     "Select * from ZONEDAT where  [ZACC] like '%deck%' AND [ZFOOTTYPE] like '%slab%' AND [ZFOOTERMAT] like '%con%' "
     "order by [ZNPERMIT]",
     "2"},
    {"db8.mdb", "Select * from ZONEDAT where [FILEMONTH] = 3 and [FILEYEAR] = 2025 order by [FILEDATE]", "2 1"},
    {"db8.mdb", "Select * from ZONEDAT where [FILEYEAR] = 2025 order by [FILEDATE]", "2 1"},
    {"db8.mdb",
     "Select * from ZONEDAT where [ZEXPIRYDATE] > #03/15/25# and [ZEXPIRYDATE] < #12/31/25# order by [ZEXPIRYDATE]",
     "1 2"},
    {"db8.mdb", "Select * from ZONEDAT where [ZFOLLOWUPBY] <> '' order by [ZFILEDATE]", "1"},
    // fire inspections
    {"fdb.mdb", "Select * from FPARCEL order by [FSEQ]", "1 2"},
    {"fdb.mdb", "Select * from FPARCEL order by [FOWNRNAME1]", "2 1"},
    {"fdb.mdb", "Select * from FPARCEL order by [FOWNRADDR1]", "1 2"},
    {"fdb.mdb", "Select * from FPARCEL where [SEC] = '12' AND[BLK] = '3' AND[LOT] = '46' order by [FSEQ]", "2"},
    {"fdb.mdb",
     "Select * from FPARCEL where [FLOCN1] like '%oak%' AND [SEC] = '12' AND[BLK] = '3' AND [FEXTRA] like '%store%' "
     "AND "
     "[FMAPNO] like '%m-%' AND [FSTRUCTYPE] like '%brick%' AND [FILEDATE] = #03/09/2025# order by [FSEQ]",
     "1"},
    {"fins.mdb", "Select * from FINSP order by FISEQ", "1 2 3"},
    {"fins.mdb", "Select * from FINSP where [SEC] = '12' AND[BLK] = '3' order by [FISEQ]", "1"},
    {"fins.mdb", "Select * from FINSP where [FISBL] = '12-0-0-3-45' order by FISEQ", "1 2"},
    {"fins.mdb", "Select * from FINSP where [FISBL] = '12-0-0-3-45' and [FIUNIT] = '2a' order by FISEQ", "1"},
    {"fins.mdb", "Select * from FINSP where [FISBL] = '12-0-0-3-45' order by FOCCNAME1", "2 1"},
    {"fins.mdb", "Select * from FINSP where [FINSDATE] > #03/01/25# and [FINSDATE] < #04/01/25# order by [FOCCNAME1]",
     "3 1"},
    {"fins.mdb",
     "Select * from FINSP where (([FINSDATE] > #03/01/25#) or ([FNEXTTDATE] > #03/01/25# and [FNEXTTDATE] < "
     "#04/15/25#)) and ([FISTATUS] like '%Scheduled%') order by [FISEQ]",
     "1"},
    {"fins.mdb",
     "Select * from FINSP where (([FINSDATE] > #03/01/25#) or ([FNEXTTDATE] > #03/01/25# and [FNEXTTDATE] < "
     "#04/15/25#)) and ([FISTATUS] like '%ReInspection%') and ([FITYPE] = 'Complaint') order by [FCERT]",
     "2"},
    {"fins.mdb",
     "Select * from FINSP where ([FINSDATE] > #01/01/23#) and ([FTOTDUE] <> '0.00' and [FTOTDUE] <> '') order by "
     "[FLOCN1]",
     "1"},
    {"fins.mdb", "Select * from FINSP where ([FISTATUS] like '%Pending%') order by [FISEQ]", "3"},
    // fees
    {"pbfees.mdb", "Select * from PBFEES WHERE [PBFCASE] = '25-1' order by SEQ", "1 2"},
    {"pbfees.mdb",
     "Select * from PBFEES WHERE PBFCASE = '25-1' and [PBFPAIDMM] = 4 and [PBFPAIDYY] = 2025 order by SEQ", "2"},
    {"pbfees.mdb", "Select * from PBFEES WHERE PBFCASE = '25-1' and [PBFPAIDYY] = 2025 order by SEQ", "1 2"},
    {"pbfees.mdb", "Select * from PBFEES WHERE [PBFPAIDMM] = 3 and [PBFPAIDYY] = 2025 order by SEQ", "1"},
    {"pbfees.mdb", "Select * from PBFEES WHERE [PBFPAIDYY] = 2025 order by SEQ", "1 2"},
    {"pbfees.mdb", "Select * from PBFEES WHERE [PBFBALDUE] <> 0 order by SEQ", "2"},
    {"pbfees.mdb", "Select * from PBFEES WHERE [PBFPROJNAME] = '12-0-0-3-45' order by SEQ", "1 2"},
    {"pbfees.mdb",
     "Select * from PBFEES WHERE [PBFPAIDDATE] > #03/01/2025# AND [PBFPAIDDATE] < #04/01/2025# and [PBFEXTRA] = 'P' "
     "order by [SEQ]",
     "1"},
    // meetings
    {"meeting.mdb", "Select * from MEETING where [MYEAR] = '2025' or [MFREQ] = 'R' order by [MJUL]", "2 1"},
    {"meeting.mdb",
     "Select * from MEETING where ([MDATE] > #02/28/2025# and [MDATE] < #04/01/2025#) and ([MYEAR] = '2025' or [MFREQ] "
     "= 'R') order by [MDATE]",
     "1"},
    // parcels and the roll
    {"sbl.mdb", "Select * from SBL", "1 2 3"},
    {"sbl.mdb", "Select * from SBL order by [SBLF]", "2 1 3"},
    {"sbl.mdb", "Select * from SBL where [PERMIT] = '?' order by [SBLF]", "2"},
    {"sbl.mdb",
     "Select * from SBL where ([NORTHCOORD] > 0 AND [EASTCOORD] > 0) AND (([NORTHCOORD] > 900100 AND [NORTHCOORD] < "
     "900300) AND ([EASTCOORD] > 642100.4 AND [EASTCOORD] < 642300))  order by [SBLF]",
     "1"},
    {"sbl.mdb",
     "Select * from SBL where [NORTHCOORD] > 0 AND [EASTCOORD] > 0 AND (([NORTHCOORD] > -50 AND [NORTHCOORD] < 900300) "
     "AND ([EASTCOORD] > 642000 AND [EASTCOORD] < 642400))  order by [SBLF]",
     "2 1"},
    {"sbl.mdb",
     "Select * from SBL where [SBLF] like '%12-0-0-3%' AND[ASSOC] like '%unk%' AND[PERMIT] like '%?%' AND[LOCN1] like "
     "'%elm%' order by [SBLF]",
     "2"},
    {"sbl.mdb",
     "Select * from SBL where [ASSOC] like '%brien%' AND[NOTES] like '%fence%' OR [HISTORICAL] like '%fence%' order by "
     "[SBLF]",
     "2 1"},
    {"sbl.mdb", "Select * from SBL where [SBLF] = '13-0-0-1-1'", "3"},
    {"rps.mdb", "Select * from RPS", "1"},
    {"rps.mdb", "Select * from RPS where [RSBLF] = '12-0-0-3-45'", "1"},
};

}  // namespace zelvo
