#include "core/KeyDerivation.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <openssl/crypto.h>
#include <openssl/sha.h>
#include <vector>

// The derivation of the library copies contexts through its provider layer in every round and takes four
// times as long, and every save and every opening needs several derivations. The block function of the
// library is available only under these names, which are deprecated since version 3.0, so the warning is
// disabled for this file.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace
{

using Block = std::array<unsigned char, SHA_CBLOCK>;
using DigestWords = std::array<SHA_LONG, SHA_DIGEST_LENGTH / sizeof(SHA_LONG)>;

constexpr unsigned char InnerPad = 0x36;
constexpr unsigned char OuterPad = 0x5C;

// HMAC hashes one block of padded key before each of its two messages. These are both states after that
// block; all rounds start from copies of them.
struct KeyedStates
{
    SHA_CTX inner;
    SHA_CTX outer;
};

// The computation of 20 bytes of the derived key.
struct Chain
{
    SHA_CTX state;
    // The last digest, followed by the padding of a message of 20 bytes after one block of key. Only the
    // digest changes between rounds.
    Block message;
    DigestWords sum;
};

DigestWords digestWords(const SHA_CTX &state)
{
    return {state.h0, state.h1, state.h2, state.h3, state.h4};
}

void storeWords(const DigestWords &words, unsigned char *target)
{
    for (const SHA_LONG word : words) {
        qToBigEndian(word, target);
        target += sizeof(word);
    }
}

SHA_CTX stateAfterPaddedKey(const Block &key, unsigned char pad)
{
    Block padded;
    std::transform(key.begin(), key.end(), padded.begin(), [pad](unsigned char byte) { return byte ^ pad; });
    SHA_CTX state;
    SHA1_Init(&state);
    SHA1_Update(&state, padded.data(), padded.size());
    OPENSSL_cleanse(padded.data(), padded.size());
    return state;
}

KeyedStates keyedStates(QByteArrayView secret)
{
    Block key = {};
    if (secret.size() > SHA_CBLOCK)
        SHA1(reinterpret_cast<const unsigned char *>(secret.data()), std::size_t(secret.size()), key.data());
    else
        std::copy(secret.begin(), secret.end(), key.begin());
    const KeyedStates states = {stateAfterPaddedKey(key, InnerPad), stateAfterPaddedKey(key, OuterPad)};
    OPENSSL_cleanse(key.data(), key.size());
    return states;
}

// Hashes the message of `chain`, beginning with the state `start`, and makes the digest the next message.
void absorb(Chain &chain, const SHA_CTX &start)
{
    chain.state.h0 = start.h0;
    chain.state.h1 = start.h1;
    chain.state.h2 = start.h2;
    chain.state.h3 = start.h3;
    chain.state.h4 = start.h4;
    SHA1_Transform(&chain.state, chain.message.data());
    storeWords(digestWords(chain.state), chain.message.data());
}

// The first round. Its message is the salt and the number of the chain, counted from 1.
Chain firstRound(const KeyedStates &states, QByteArrayView salt, quint32 number)
{
    constexpr quint64 messageBits = quint64(SHA_CBLOCK + SHA_DIGEST_LENGTH) * 8;
    Chain chain = {};
    chain.message[SHA_DIGEST_LENGTH] = 0x80;
    qToBigEndian(messageBits, chain.message.data() + std::size_t(SHA_CBLOCK) - sizeof(messageBits));

    const quint32 numberBytes = qToBigEndian(number);
    SHA_CTX inner = states.inner;
    SHA1_Update(&inner, salt.data(), std::size_t(salt.size()));
    SHA1_Update(&inner, &numberBytes, sizeof(numberBytes));
    SHA1_Final(chain.message.data(), &inner);
    absorb(chain, states.outer);
    chain.sum = digestWords(chain.state);
    return chain;
}

void addDigest(Chain &chain)
{
    const DigestWords words = digestWords(chain.state);
    for (std::size_t i = 0; i < words.size(); ++i)
        chain.sum[i] ^= words[i];
}

} // namespace

QByteArray pbkdf2HmacSha1(QByteArrayView secret, QByteArrayView salt, int rounds, qsizetype length)
{
    KeyedStates states = keyedStates(secret);
    std::vector<Chain> chains(std::size_t((length + SHA_DIGEST_LENGTH - 1) / SHA_DIGEST_LENGTH));
    quint32 number = 0;
    for (Chain &chain : chains)
        chain = firstRound(states, salt, ++number);

    // All chains do each half of a round together. They are independent, so the processor overlaps their
    // block functions, and two chains take little longer than one.
    for (int round = 1; round < rounds; ++round) {
        for (Chain &chain : chains)
            absorb(chain, states.inner);
        for (Chain &chain : chains)
            absorb(chain, states.outer);
        for (Chain &chain : chains)
            addDigest(chain);
    }

    QByteArray derived(qsizetype(chains.size()) * SHA_DIGEST_LENGTH, Qt::Uninitialized);
    unsigned char *target = reinterpret_cast<unsigned char *>(derived.data());
    for (const Chain &chain : chains) {
        storeWords(chain.sum, target);
        target += SHA_DIGEST_LENGTH;
    }
    derived.truncate(length);
    OPENSSL_cleanse(chains.data(), chains.size() * sizeof(Chain));
    OPENSSL_cleanse(&states, sizeof(states));
    return derived;
}

QT_WARNING_POP
