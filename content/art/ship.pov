// The player's ship, seen from above, nose up. F: 0 level, 1 bank left, 2 bank right.
#include "common.inc"

#declare Wing = union {
  // outer wing, swept forward at the tip
  object { Plate(array[8]{<8,7>,<17,1>,<25,5>,<31.4,15>,<31.4,-2>,<27,-14>,<20,-12>,<8,-14>}, -2, 1, 1.8) Paint(C_SteelD) }
  object { Plate(array[4]{<25.4,5>,<30.4,12>,<30.4,-2>,<27,-10>}, 0, 2.4, 0.9) Paint(C_Steel) }
  // white inner panel: the part that can be hit
  object { Plate(array[6]{<4,11>,<11,9>,<17,1>,<16.5,-8>,<12,-12>,<4,-12>}, -1, 4, 2) Paint(C_White) }
  // cyan flash across the wing
  object { Plate(array[4]{<17.6,0>,<29.8,5>,<29.8,1.6>,<17.6,-3.6>}, 0, 2.6, 0.4) Glow(C_Cyan, 0.8) }
  // navy trim
  object { Plate(array[4]{<18.5,-7>,<28.4,-5>,<27,-10.6>,<20,-11>}, 0, 1.7, 0.5) Paint(C_Navy) }
  // wing gun
  cylinder { <22, -6, 1.6>, <22, 17, 1.6>, 1.5 Metal(C_Gun) }
  cylinder { <22, 13, 1.6>, <22, 18, 1.6>, 2.0 Paint(C_SteelD) }
  cylinder { <22, 18, 1.6>, <22, 19.6, 1.6>, 1.2 Glow(C_Cyan, 0.9) }
  cylinder { <22, -10, 1.4>, <22, 4, 1.4>, 2.7 Paint(C_Steel) }
  sphere { 0, 1 scale <2.7, 4, 2.7> translate <22, 4, 1.4> Paint(C_Steel) }
  // engine
  cylinder { <8.5, -6, 2>, <8.5, -14, 2>, 4.6 Paint(C_Steel) }
  sphere { 0, 1 scale <4.6, 7, 4.6> translate <8.5, -6, 2> Paint(C_Steel) }
  torus { 4.1, 0.9 translate <8.5, -14, 2> Metal(C_GunD) }
  cylinder { <8.5, -10, 2>, <8.5, -11.6, 2>, 4.8 Paint(C_Navy) }
  // tail fin
  object { Plate(array[4]{<13.2,-8>,<15.4,-10>,<16.8,-18>,<13.6,-15>}, 2, 8, 0.8) Paint(C_Steel) }
}
#declare Ship = union {
  Both(Wing)
  // fuselage
  object { SymPlate(array[5]{<0,15>,<4.4,13>,<6.2,4>,<6.2,-10>,<3.4,-15>}, -1, 6, 2.2) Paint(C_Steel) }
  cone { <0,9,2.4>, 5.0, <0,31.4,2.4>, 0.7 Paint(C_Steel) }
  cone { <0,17.2,2.4>, 3.5, <0,19.4,2.4>, 3.1 Paint(C_SteelD) }
  cone { <0,20.4,2.4>, 2.9, <0,31.7,2.4>, 0.75 Paint(C_White) }
  // spine
  object { SymPlate(array[4]{<0,-3>,<2.6,-5>,<2,-13>,<0,-14>}, 5, 9, 1) Paint(C_White) }

  }
#declare Canopy = union {
  sphere { 0, 1 scale <3.5, 8.4, 4.4> translate <0, 5.5, 5.6> Glass(srgb <0.05, 0.30, 0.52>) }
  sphere { 0, 1 scale <1.1, 2.6, 1> translate <-1.0, 8, 9.2> Glow(C_CyanW, 0.9) }
}
#declare Roll = (F = 1 ? -32 : (F = 2 ? 32 : 0));
// engine flames: three nested cones that do not roll with the ship. At its home place the lowest ten rows of the frame
// lie below the screen, so nothing is drawn there.
#declare Flame = union {
  cone { <0, -14, -20>, 4.2, <0, -21.4, -20>, 0.6 Glow(srgb <0.10, 0.42, 1.00>, 0.95) }
  cone { <0, -14, -14>, 3.1, <0, -20.4, -14>, 0.4 Glow(C_Cyan, 1) }
  cone { <0, -14, -9>, 1.9, <0, -18.6, -9>, 0.4 Glow(C_White, 1) }
}
union {
  object { Ship }
  object { Canopy }
  rotate y*Roll
}
#for (Ei, -1, 1, 2)
  object { Flame translate x*(vrotate(<8.5*Ei, 0, 2>, y*Roll).x) }
#end
