10 PRINT RIGHT$("ABC",2);"]";RIGHT$("ABC",0);"]";RIGHT$("ABC",3);"]";RIGHT$("ABC",255);"]";RIGHT$("",5);"]"
