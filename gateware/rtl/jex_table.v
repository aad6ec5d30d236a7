// An expression as a truth table over the units. Bit i of TABLE is the result for the units that match as the number i
// says. STYLE is "block" for a block memory; everything else makes it of the look-up tables of logic cells, which is
// what a shadow memory is when nobody writes it.
module jex_table #(
    parameter UNITS = 1,
    parameter STYLE = "block",
    parameter [(1<<UNITS)-1:0] TABLE = 0
) (
    input wire clk,
    input wire [UNITS-1:0] match,
    output reg holds
);

    integer i;
    initial holds = 1'b0;

    generate
        if (STYLE == "block") begin : block
            (* ram_style = "block", rom_style = "block", syn_ramstyle = "block_ram", syn_romstyle = "block_rom" *)
            reg words[0:(1<<UNITS)-1];
            initial for (i = 0; i < (1 << UNITS); i = i + 1) words[i] = TABLE[i];
            always @(posedge clk) holds <= words[match];
        end else begin : cells
            (* ram_style = "registers", rom_style = "registers", syn_ramstyle = "registers", syn_romstyle = "logic" *)
            reg words[0:(1<<UNITS)-1];
            initial for (i = 0; i < (1 << UNITS); i = i + 1) words[i] = TABLE[i];
            always @(posedge clk) holds <= words[match];
        end
    endgenerate

endmodule
