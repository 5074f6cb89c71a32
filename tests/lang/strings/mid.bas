10 PRINT MID$("ABC",2);"]";MID$("ABC",1,1);"]";MID$("ABC",2,0);"]";MID$("ABC",3,5);"]";MID$("ABC",4);"]";MID$("ABC",10);"]";MID$("ABC",255,255);"]"
