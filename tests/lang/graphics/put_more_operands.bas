10 ' What follows the mode is read and means nothing.
20 CLS 3:DIM A%(5):PSET(0,0),5:GET@(0,0)-(1,1),A%:PSET(50,50),3:PSET(60,50),3:PSET(70,50),3
30 PUT@(50,50),A%,OR,4:PUT@(60,50),A%,AND,0,2:PUT@(70,50),A%,PSET,4,4
40 PRINT POINT(50,50);POINT(60,50);POINT(70,50)
