#pragma once

#include "support/temporary_store.h"

namespace kelvora::test {

/// A small data file with a row of everything: the reference rows, three operations of 2004, and of the first two a
/// sample of every kind. The last rows of the reference lists are used by none: port Dun, method Longline, area A3,
/// vessel Idle, species Zeus faber.
inline void addSmallYear(TemporaryStore& store) {
    store.addReferenceRows();
    store.execute("insert into samplingport values (4, 'Dun', 2)");
    store.execute("insert into Fishing_method values (4, 'Longline', 2)");
    store.execute("insert into fishing_area values ('A3', 'nowhere')");
    store.execute("insert into vessel(vesselname, vesselid, gear) values ('Idle', 'R-9', 2)");
    store.execute("insert into fish(fishno, family, genus, fishname) values (4, 'Zeidae', 'Zeus', 'faber')");
    store.execute("update fish set classinterval = 2 where fishno = 1");
    store.addOperation(1, 1, u"2004-03-09"_qs, 1, 120.5, u"Sea Star"_qs, u"A1"_qs);
    store.addOperation(2, 2, u"2004-04-01"_qs, 3, 80, u"Blue Fin"_qs, u"A2"_qs);
    store.addOperation(3, 3, u"2004-05-01"_qs, 2, 60, u"Sea Star"_qs, u"A1"_qs);
    for (const int operation : {1, 2}) {
        Connection& db = store.db();
        db.execute(Sql("insert into group_main values (1,") << operation << ",'Single species',30)");
        db.execute(Sql("insert into group_composition values (") << operation << ",1,1,30,30)");
        db.execute(Sql("insert into group_main values (2,") << operation << ",'Trash',50)");
        db.execute(Sql("insert into group_composition values (") << operation << ",3,2,5,50)");
        db.execute(Sql("insert into length values (") << operation << ",1,2.5)");
        db.execute(Sql("insert into length_detail values (") << operation << ",1,10,12,11,4)");
        db.execute(Sql("insert into gonad values (") << operation << ",1,0.4)");
        db.execute(Sql("insert into gonad_detail values (") << operation << ",1,1,100,90,95,85,200,'Male',2,10,5)");
    }
}

}  // namespace kelvora::test
