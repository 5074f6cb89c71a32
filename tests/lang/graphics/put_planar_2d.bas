10 ' In an array of two dimensions a picture runs along the first subscript.
20 SCREEN 3:CLS 3:DIM A%(9,3)
30 A%(0,1)=8:A%(1,1)=2
40 A%(2,1)=&HCCF0:A%(3,1)=&HFFAA:A%(4,1)=0
50 PUT@(50,50),A%(0,1),PSET
60 A%(3,2)=4:A%(4,2)=1:A%(5,2)=&HC0A0:A%(6,2)=&H90:PUT@(70,50),A%(3,2),PSET
