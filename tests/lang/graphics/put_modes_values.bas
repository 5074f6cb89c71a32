10 ' What each mode makes of a stored 5 and a 3 that is there, also with colours beyond 15.
20 CLS 3:DIM A%(5),B%(5):PSET(0,0),5:GET@(0,0)-(1,1),A%:PSET(0,0),-2:GET@(0,0)-(1,1),B%
30 FOR I=0 TO 9:PSET(I*10+50,50),3:NEXT I
40 PUT@(50,50),A%,PSET:PUT@(60,50),A%,PRESET:PUT@(70,50),A%,OR:PUT@(80,50),A%,AND:PUT@(90,50),A%,XOR
50 PUT@(100,50),B%,PSET:PUT@(110,50),B%,PRESET:PUT@(120,50),B%,OR:PUT@(130,50),B%,AND:PUT@(140,50),B%
60 FOR I=0 TO 9:PRINT POINT(I*10+50,50);:NEXT I
