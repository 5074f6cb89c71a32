10 ' An array holds a picture in each element; the array's name alone is its first.
20 SCREEN 3:CLS 3:DIM A%(5),B%(3,3)
30 FOR I=1 TO 5:LINE(I*20,10)-(I*20+10,20),I,BF:GET@(I*20,10)-(I*20+10,20),A%(I):NEXT I
40 CIRCLE(200,15),8,6:GET@(190,5)-(210,25),A%(0)
50 FOR I=5 TO 1 STEP -1:PUT@(300-I*20,100),A%(I),PSET:NEXT I
60 PUT@(400,100),A%,PSET:GET@(20,10)-(30,20),B%(2,1):PUT@(450,100),B%(2,1),PSET
70 GET@(40,10)-(50,20),A%:PUT@(500,100),A%(0),PSET
80 DIM S(2):GET@(20,10)-(60,20),S:PUT@(300,200),S(0),PSET
