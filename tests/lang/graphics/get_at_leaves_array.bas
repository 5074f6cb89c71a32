10 ' GET@ stores its picture beside the array, whose elements stay.
20 CLS 3:DIM A%(5),B$(3):FOR I=0 TO 5:A%(I)=I*7:NEXT I:B$(1)="text"
30 PSET(3,3),5:GET@(0,0)-(9,9),A%:GET@(0,0)-(9,9),B$(1):CLS 2
40 FOR I=0 TO 5:PRINT A%(I);:NEXT I:PRINT B$(1)
50 PUT@(100,100),B$(1),PSET:PRINT POINT(103,103):PUT@(0,0),A%(0),PSET:PRINT POINT(3,3)
