// The samples, in memories of the kind STYLE: "block", "distributed" or "registers". Written and read with a clock
// each. What is read comes a clock after its address and is only told of words that are not being written.
module jex_memory #(
    parameter WIDTH = 1,
    parameter ADDRESS_BITS = 2,
    parameter STYLE = "block"
) (
    input wire write_clock,
    input wire write,
    input wire [ADDRESS_BITS-1:0] write_address,
    input wire [WIDTH-1:0] write_data,
    input wire read_clock,
    input wire [ADDRESS_BITS-1:0] read_address,
    output reg [WIDTH-1:0] read_data
);

    generate
        if (STYLE == "block") begin : block
            (* ram_style = "block", syn_ramstyle = "block_ram" *)
            reg [WIDTH-1:0] words[0:(1<<ADDRESS_BITS)-1];
            always @(posedge write_clock) if (write) words[write_address] <= write_data;
            always @(posedge read_clock) read_data <= words[read_address];
        end else if (STYLE == "distributed") begin : distributed
            (* ram_style = "distributed", syn_ramstyle = "distributed" *)
            reg [WIDTH-1:0] words[0:(1<<ADDRESS_BITS)-1];
            always @(posedge write_clock) if (write) words[write_address] <= write_data;
            always @(posedge read_clock) read_data <= words[read_address];
        end else begin : registers
            (* ram_style = "registers", syn_ramstyle = "registers" *)
            reg [WIDTH-1:0] words[0:(1<<ADDRESS_BITS)-1];
            always @(posedge write_clock) if (write) words[write_address] <= write_data;
            always @(posedge read_clock) read_data <= words[read_address];
        end
    endgenerate

endmodule
