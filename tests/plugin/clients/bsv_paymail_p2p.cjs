// Pays a paymail as a wallet with @bsv/paymail does: node bsv_paymail_p2p.cjs NAME@HOST SATOSHIS PUBKEY
// It asks for outputs, builds and signs a transaction with its own SDK, which comes along with the client, and delivers it
// twice. Prints one JSON object: outputs, the transaction and its id, both answers, whether the key is the name's; or "error".
const dns = require('dns');
const { PaymailClient } = require('@bsv/paymail/client');
const { LockingScript, MerklePath, P2PKH, PrivateKey, Transaction } = require('@bsv/sdk');

// What the wallet owns: an output of a transaction of its own, mined alone in its block.
const key = new PrivateKey(1);

function coins(satoshis) {
    const source = new Transaction();
    source.addInput({ sourceTXID: '11'.repeat(32), sourceOutputIndex: 0, unlockingScript: LockingScript.fromHex('00') });
    source.addOutput({ lockingScript: new P2PKH().lock(key.toPublicKey().toHash()), satoshis });
    source.merklePath = MerklePath.fromCoinbaseTxidAndHeight(source.id('hex'), 1);
    return source;
}

async function pay(paymail, satoshis, pubkey) {
    const client = new PaymailClient(undefined, { dns });
    const { outputs, reference } = await client.getP2pPaymentDestination(paymail, satoshis);
    const tx = new Transaction();
    tx.addInput({ sourceTransaction: coins(satoshis + 1000), sourceOutputIndex: 0, unlockingScriptTemplate: new P2PKH().unlock(key) });
    for (const output of outputs) {
        tx.addOutput({ lockingScript: LockingScript.fromHex(output.script), satoshis: output.satoshis });
    }
    tx.addOutput({ lockingScript: new P2PKH().lock(key.toPublicKey().toHash()), change: true });
    await tx.fee();
    await tx.sign();
    const metadata = {
        sender: 'bob@example.org',
        pubkey: key.toPublicKey().toString(),
        signature: client.createP2PSignature(tx.id('hex'), key),
        note: 'tea & <b>cake</b>',
    };
    const deliver = () => client.sendTransactionP2P(paymail, tx.toHex(), reference, metadata);
    const answers = [await deliver(), await deliver()];
    const { match } = await client.verifyPublicKey(paymail, pubkey);
    return { outputs, hex: tx.toHex(), txid: tx.id('hex'), valid: await tx.verify('scripts only'), answers, match };
}

pay(process.argv[2], Number(process.argv[3]), process.argv[4])
    .catch((error) => ({ error: error.message }))
    .then((found) => console.log(JSON.stringify(found)));
